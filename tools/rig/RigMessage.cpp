#include "tools/rig/RigMessage.h"

#include "tools/process/Message.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace Tolvane::Tools {
namespace {

constexpr std::size_t kMostFiles = 100'000;
constexpr std::size_t kMostCarriers = 100'000;
constexpr std::size_t kMostLinks = 100'000;
constexpr std::size_t kMostAnimations = 1'000'000;

template <typename Message, typename Matrix>
void exchangeMatrix(Message& message, Matrix& matrix) {
    for (unsigned row = 0; row < 4; ++row)
        for (unsigned column = 0; column < 4; ++column) message.number(matrix[row][column]);
}

template <typename Message, typename AnyChannel>
void exchangeChannel(Message& message, AnyChannel& channel) {
    const auto ofVector = [](auto& key) {
        return std::tie(key.mTime, key.mValue.x, key.mValue.y, key.mValue.z);
    };
    const auto ofRotation = [](auto& key) {
        return std::tie(key.mTime, key.mValue.w, key.mValue.x, key.mValue.y, key.mValue.z);
    };
    message.rows(channel.positions, ofVector);
    message.rows(channel.rotations, ofRotation);
    message.rows(channel.scalings, ofVector);
}

template <typename Message, typename AnyOptional>
void exchangeMovement(Message& message, AnyOptional& channel) {
    message.optional(channel, [&](auto& moving) { exchangeChannel(message, moving); });
}

template <typename Message, typename AnyLink>
void exchangeLink(Message& message, AnyLink& link) {
    exchangeMatrix(message, link.rest);
    exchangeMovement(message, link.channel);
}

template <typename Message, typename AnyLinks>
void exchangeLinks(Message& message, AnyLinks& links) {
    message.list(links, kMostLinks, [&](auto& link) { exchangeLink(message, link); });
}

template <typename Message, typename AnyIndex>
void exchangeParent(Message& message, AnyIndex& parent) {
    message.optional(parent, [&](auto& index) { message.number(index); });
}

template <typename Message, typename AnyCarrier>
void exchangeCarrier(Message& message, AnyCarrier& carrier) {
    exchangeParent(message, carrier.parent);
    exchangeLinks(message, carrier.links);
}

template <typename Message, typename AnyJoint>
void exchangeJoint(Message& message, AnyJoint& joint) {
    message.text(joint.name);
    exchangeParent(message, joint.parent);
    exchangeMatrix(message, joint.aboveRoot);
    exchangeMatrix(message, joint.restLocal);
    exchangeMatrix(message, joint.restWorld);
    message.number(joint.weight);
    exchangeMovement(message, joint.channel);
    exchangeLinks(message, joint.links);
    exchangeParent(message, joint.carrier);
}

template <typename Message, typename Axis, typename Metres>
void exchangeWorld(Message& message, Axis& upAxis, Metres& metresPerUnit) {
    message.number(upAxis);
    message.optional(metresPerUnit, [&](auto& metres) { message.number(metres); });
}

constexpr auto exchangeRig = [](auto& message, auto& rig) {
    message.text(rig.file);
    message.list(rig.filesRead, kMostFiles, [&](auto& file) { message.text(file); });
    message.list(rig.joints, kMostJoints, [&](auto& joint) { exchangeJoint(message, joint); });
    message.list(rig.carriers, kMostCarriers,
                 [&](auto& carrier) { exchangeCarrier(message, carrier); });
    message.flag(rig.hasSkeleton);
    exchangeWorld(message, rig.upAxis, rig.metresPerUnit);
    message.text(rig.animation);
    message.number(rig.frameCount);
    message.number(rig.framesPerSecond);
    message.number(rig.ticksPerFrame);
};

template <typename Message, typename AnyAnimation>
void exchangeAnimation(Message& message, AnyAnimation& animation) {
    message.text(animation.name);
    message.optional(animation.timing, [&](auto& timing) {
        message.number(timing.seconds);
        message.number(timing.framesPerSecond);
        message.number(timing.frameCount);
    });
}

constexpr auto exchangeInfo = [](auto& message, auto& info) {
    message.text(info.file);
    message.flag(info.hasSkeleton);
    for (auto* count :
         {&info.joints, &info.bones, &info.animated, &info.inBetween, &info.meshes, &info.skins})
        message.number(*count);
    exchangeWorld(message, info.world.upAxis, info.world.metresPerUnit);
    message.list(info.animations, kMostAnimations,
                 [&](auto& animation) { exchangeAnimation(message, animation); });
};

void require(bool holds, const char* otherwise) {
    if (!holds) throw BadMessage(otherwise);
}

bool isPositive(double number) { return std::isfinite(number) && number > 0; }

template <typename Key>
void checkKeys(const std::vector<Key>& keys) {
    require(!keys.empty(), "a list of keys is empty");
    for (std::size_t i = 0; i < keys.size(); ++i) {
        require(std::isfinite(keys[i].mTime), "a key has no time");
        require(i == 0 || keys[i - 1].mTime <= keys[i].mTime, "keys are out of order");
    }
}

void checkMovement(const std::optional<Channel>& channel) {
    if (!channel) return;
    checkKeys(channel->positions);
    checkKeys(channel->rotations);
    checkKeys(channel->scalings);
}

void checkLinks(const Links& links) {
    for (const Link& link : links) checkMovement(link.channel);
}

void checkJoints(const Rig& rig) {
    require(!rig.joints.empty(), "there are no joints");
    for (std::size_t i = 0; i < rig.joints.size(); ++i) {
        const Joint& joint = rig.joints[i];
        require(!joint.parent || *joint.parent < i, "a joint stands before its parent");
        require(!joint.carrier || *joint.carrier < rig.carriers.size(), "a carrier is not there");
        checkMovement(joint.channel);
        checkLinks(joint.links);
    }
}

void checkCarriers(const std::vector<Carrier>& carriers) {
    for (std::size_t i = 0; i < carriers.size(); ++i) {
        require(!carriers[i].parent || *carriers[i].parent < i,
                "a carrier stands before its parent");
        checkLinks(carriers[i].links);
    }
}

void checkWorld(unsigned upAxis, const std::optional<double>& metresPerUnit) {
    require(upAxis < 3, "there is no such axis");
    require(!metresPerUnit || isPositive(*metresPerUnit), "the unit has no length");
}

void check(const RigInfo& info) {
    for (const std::size_t part : {info.bones, info.animated, info.inBetween})
        require(part <= info.joints, "there are more joints of a sort than of all");
    require(info.skins <= info.meshes, "there are more skins than meshes");
    checkWorld(info.world.upAxis, info.world.metresPerUnit);
    for (const AnimationInfo& animation : info.animations) {
        if (!animation.timing) continue;
        const TimingInfo& timing = *animation.timing;
        require(std::isfinite(timing.seconds) && timing.seconds >= 0, "an animation has no length");
        require(isPositive(timing.framesPerSecond), "frames have no length");
        require(timing.frameCount > 0, "an animation has no frames");
    }
}

void check(const Rig& rig) {
    checkJoints(rig);
    checkCarriers(rig.carriers);
    checkWorld(rig.upAxis, rig.metresPerUnit);
    require(rig.frameCount > 0 && rig.frameCount <= kMostFrames,
            "there are too many frames, or none");
    require(isPositive(rig.framesPerSecond) && isPositive(rig.ticksPerFrame),
            "frames have no length");
}

}  // namespace

std::string messageOf(const Rig& rig) { return packed(rig, exchangeRig); }

Rig rigOf(std::string_view bytes) {
    auto rig = unpacked<Rig>(bytes, exchangeRig);
    check(rig);
    return rig;
}

std::string messageOf(const RigInfo& info) { return packed(info, exchangeInfo); }

RigInfo infoOf(std::string_view bytes) {
    auto info = unpacked<RigInfo>(bytes, exchangeInfo);
    check(info);
    return info;
}

}  // namespace Tolvane::Tools
