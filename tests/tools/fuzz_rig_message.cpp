// Bytes that may be a rig, as a fuzzer makes them up: they are refused, or give a rig that can be
// posed and that makes the same bytes again.
#include "tools/node/RigFrame.h"
#include "tools/process/Message.h"
#include "tools/rig/RigMessage.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace Tolvane::Tools;

constexpr std::size_t kMostChanges = 4;

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
    rig.joints[2].channel = Channel{{{0, {1, 2, 3}}, {2, {4, 5, 6}}}, {{0, {}}}, {{1, {1, 1, 1}}}};
    return rig;
}

// A whole message, with a byte replaced for every three bytes of `changes`: two for the place,
// one for what is there then. Few are enough, and the fuzzer would not get as far by itself.
std::string changed(const std::string& changes) {
    static const std::string s_whole = messageOf(smallRig());
    std::string bytes = s_whole;
    for (std::size_t i = 0; i + 2 < changes.size() && i < 3 * kMostChanges; i += 3) {
        const auto high = static_cast<unsigned char>(changes[i]);
        const auto low = static_cast<unsigned char>(changes[i + 1]);
        bytes[(std::size_t{high} * 256 + low) % bytes.size()] = changes[i + 2];
    }
    return bytes;
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

void requirePromises(const Rig& rig) {
    require(rig.frameCount >= 1 && rig.frameCount <= kMostFrames && rig.upAxis <= 2);
    for (std::size_t i = 0; i < rig.joints.size(); ++i) {
        require(!rig.joints[i].parent || *rig.joints[i].parent < i);
        if (const auto& channel = rig.joints[i].channel)
            require(areInOrder(channel->positions) && areInOrder(channel->rotations) &&
                    areInOrder(channel->scalings));
    }
}

void tryBytes(const std::string& bytes) {
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
    tryBytes(bytes);
    tryBytes(changed(bytes));
    return 0;
}
