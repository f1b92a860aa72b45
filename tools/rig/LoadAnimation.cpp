#include "tools/rig/LoadAnimation.h"

#include "tools/support/Error.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace Tolvane::Tools {
namespace {

constexpr double kDefaultRate = 30;
constexpr double kHighestLikelyRate = 240;

const aiAnimation* choose(const Rig& rig, const aiScene& scene,
                          const std::optional<std::string>& name) {
    std::string names;
    for (unsigned i = 0; i < scene.mNumAnimations; ++i) {
        const aiAnimation& animation = *scene.mAnimations[i];
        if (!name || *name == animation.mName.C_Str()) return &animation;
        names += std::string(i == 0 ? "" : ", ") + '"' + animation.mName.C_Str() + '"';
    }
    if (!name) return nullptr;
    throw Error(rig.file + ": has no animation \"" + *name + "\", " +
                (names.empty() ? "nor any other" : "only " + names));
}

template <typename Key>
std::vector<Key> keysOf(const Rig& rig, const Key* keys, unsigned count, const Key& atRest) {
    if (count == 0) return {atRest};
    std::vector<Key> copy(keys, keys + count);
    const bool finite = std::all_of(copy.begin(), copy.end(),
                                    [](const Key& key) { return std::isfinite(key.mTime); });
    const bool ordered = std::is_sorted(
        copy.begin(), copy.end(), [](const Key& a, const Key& b) { return a.mTime < b.mTime; });
    if (!finite || !ordered) throw Error(rig.file + ": has animation keys that are out of order");
    return copy;
}

// What a channel has no keys for stays as in the rest pose: the position, say, where it only
// rotates.
Channel channelOf(const Rig& rig, const aiNodeAnim& keys, const aiMatrix4x4& rest) {
    aiVectorKey position(0, {});
    aiQuatKey rotation(0, {});
    aiVectorKey scaling(0, {});
    rest.Decompose(scaling.mValue, rotation.mValue, position.mValue);
    return {keysOf(rig, keys.mPositionKeys, keys.mNumPositionKeys, position),
            keysOf(rig, keys.mRotationKeys, keys.mNumRotationKeys, rotation),
            keysOf(rig, keys.mScalingKeys, keys.mNumScalingKeys, scaling)};
}

// The last tick at which anything moves.
double loadChannels(Rig& rig, const aiScene& scene, const aiAnimation& animation) {
    std::map<std::string, const aiNodeAnim*> channels;
    for (unsigned i = 0; i < animation.mNumChannels; ++i)
        channels.emplace(animation.mChannels[i]->mNodeName.C_Str(), animation.mChannels[i]);

    double lastTick = 0;
    for (Joint& joint : rig.joints) {
        const auto found = channels.find(joint.name);
        if (found == channels.end()) continue;
        const aiNode* node = scene.mRootNode->FindNode(joint.name.c_str());
        joint.channel = channelOf(rig, *found->second, node->mTransformation);
        lastTick = std::max(lastTick, joint.channel->lastTick());
    }
    return lastTick;
}

template <typename Key>
bool anyOneTickApart(const Key* keys, unsigned count) {
    for (unsigned i = 1; i < count; ++i)
        if (std::abs(keys[i].mTime - keys[i - 1].mTime - 1) < 1e-3) return true;
    return false;
}

bool hasKeysOneTickApart(const aiAnimation& animation) {
    return std::any_of(
        animation.mChannels, animation.mChannels + animation.mNumChannels,
        [](const aiNodeAnim* channel) {
            return anyOneTickApart(channel->mPositionKeys, channel->mNumPositionKeys) ||
                   anyOneTickApart(channel->mRotationKeys, channel->mNumRotationKeys) ||
                   anyOneTickApart(channel->mScalingKeys, channel->mNumScalingKeys);
        });
}

// Files give the length of a frame in few digits, so a rate that is almost whole is meant to be
// whole.
double withoutRounding(double rate) {
    const double whole = std::round(rate);
    return std::abs(rate - whole) < 1e-4 * rate ? whole : rate;
}

}  // namespace

void loadAnimation(Rig& rig, const aiScene& scene, const LoadOptions& options) {
    rig.framesPerSecond = options.framesPerSecond.value_or(kDefaultRate);
    const aiAnimation* animation = choose(rig, scene, options.animation);
    if (!animation) return;
    const double ticksPerSecond = animation->mTicksPerSecond;
    if (!std::isfinite(ticksPerSecond) || ticksPerSecond < 0)
        throw Error(rig.file + ": has an animation without a valid number of frames per second");

    const auto own = ownRate(*animation);
    rig.framesPerSecond = options.framesPerSecond.value_or(own.value_or(kDefaultRate));
    const double rate = own ? *own : ticksPerSecond > 0 ? ticksPerSecond : kDefaultRate;
    rig.ticksPerFrame = rate / rig.framesPerSecond;

    // Rounding may put the last frame slightly after the last key; it counts nevertheless.
    const double lastTick = loadChannels(rig, scene, *animation);
    const double frames = std::floor(lastTick / rig.ticksPerFrame + 1e-6) + 1;
    if (!(frames <= static_cast<double>(kMostFrames)))
        throw Error(rig.file + ": has an animation of more than a million frames");
    rig.frameCount = static_cast<std::size_t>(frames);
}

// In formats that count frames a tick is a frame; in formats without frames it is a second or a
// millisecond. A rate that is unusual for frames counts only if there are keys one tick apart.
std::optional<double> ownRate(const aiAnimation& animation) {
    const double rate = withoutRounding(animation.mTicksPerSecond);
    const bool likely = rate > 1 && rate <= kHighestLikelyRate;
    if (rate > 0 && (likely || hasKeysOneTickApart(animation))) return rate;
    return std::nullopt;
}

}  // namespace Tolvane::Tools
