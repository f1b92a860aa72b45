// Bytes that may be a rig, or what is told of one, as a fuzzer makes them up: they are refused, or
// give a rig that can be posed, or a thing that is told, which makes the same bytes again.
#include "tools/node/RigFrame.h"
#include "tools/process/Message.h"
#include "tools/rig/RigMessage.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace Tolvane::Tools;

// Shorter than any message.
constexpr std::size_t kShortest = 50;
constexpr std::size_t kNumber = 8;

Rig smallRig() {
    Rig rig;
    rig.file = "a";
    rig.filesRead = {"a", ""};
    rig.metresPerUnit = 1;
    rig.animation = "walk";
    rig.frameCount = 3;
    rig.joints.resize(3);
    for (std::size_t i = 0; i < 3; ++i) rig.joints[i].name = std::string(i, 'j');
    rig.joints[1].parent = 0;
    rig.joints[2].parent = 1;
    const Channel channel{{{0, {1, 2, 3}}, {2, {4, 5, 6}}}, {{0, {}}}, {{1, {1, 1, 1}}}};
    rig.joints[2].channel = channel;
    rig.joints[1].links = {{VMatrix(), channel}, {}};
    rig.joints[0].carrier = 1;
    rig.carriers = {{std::nullopt, {{VMatrix(), channel}}}, {0, {{}}}};
    return rig;
}

RigInfo smallInfo() {
    RigInfo info;
    info.file = "a";
    info.joints = info.bones = info.meshes = info.skins = 2;
    info.world.metresPerUnit = 1;
    info.animations = {{"walk", TimingInfo{1, 30, 31}}, {"", std::nullopt}};
    return info;
}

void require(bool holds) {
    if (!holds) std::abort();
}

template <typename Key>
bool areInOrder(const std::vector<Key>& keys) {
    return !keys.empty() &&
           std::is_sorted(keys.begin(), keys.end(),
                          [](const Key& a, const Key& b) { return a.mTime < b.mTime; });
}

void requireOrder(const std::optional<Channel>& channel) {
    if (channel)
        require(areInOrder(channel->positions) && areInOrder(channel->rotations) &&
                areInOrder(channel->scalings));
}

void requireOrder(const Links& links) {
    for (const Link& link : links) requireOrder(link.channel);
}

void requirePromises(const Rig& rig) {
    require(rig.frameCount >= 1 && rig.frameCount <= kMostFrames && rig.upAxis <= 2);
    for (std::size_t i = 0; i < rig.joints.size(); ++i) {
        const Joint& joint = rig.joints[i];
        require(!joint.parent || *joint.parent < i);
        require(!joint.carrier || *joint.carrier < rig.carriers.size());
        requireOrder(joint.channel);
        requireOrder(joint.links);
    }
    for (std::size_t i = 0; i < rig.carriers.size(); ++i) {
        require(!rig.carriers[i].parent || *rig.carriers[i].parent < i);
        requireOrder(rig.carriers[i].links);
    }
}

void requirePromises(const RigInfo& info) {
    require(info.bones <= info.joints && info.animated <= info.joints &&
            info.inBetween <= info.joints && info.skins <= info.meshes && info.world.upAxis <= 2);
    for (const AnimationInfo& animation : info.animations)
        if (const auto& timing = animation.timing)
            require(timing->seconds >= 0 && timing->framesPerSecond > 0 && timing->frameCount >= 1);
}

void tryAsInfo(const std::string& bytes) {
    try {
        const RigInfo info = infoOf(bytes);
        require(messageOf(info) == bytes);
        requirePromises(info);
    } catch (const BadMessage&) {
        // As it should be for most.
    }
}

void tryAsRig(const std::string& bytes) {
    try {
        const Rig rig = rigOf(bytes);
        require(messageOf(rig) == bytes);
        requirePromises(rig);
        RigFrame frame(rig);
        for (const std::size_t each : {std::size_t{0}, rig.frameCount - 1}) frame.pose(each);
        require(frame.joints().size() == rig.joints.size());
    } catch (const BadMessage&) {
        // As it should be for most.
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    tryAsRig(bytes);
    tryAsInfo(bytes);
    return 0;
}

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

// Begins with a whole message, for changes of nothing would hardly ever make one. Mostly changes a
// number of it where it stands, for what is inserted or left out makes most of the rest senseless.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t most, unsigned seed) {
    static const std::string s_wholes[] = {messageOf(smallRig()), messageOf(smallInfo())};
    if (size < kShortest) size = s_wholes[seed % 2].copy(reinterpret_cast<char*>(data), most);
    const std::size_t place = seed / 8;
    if (seed % 8 == 0 || size < kNumber) return LLVMFuzzerMutate(data, size, most);
    LLVMFuzzerMutate(data + place % (size - kNumber + 1), kNumber, kNumber);
    return size;
}
