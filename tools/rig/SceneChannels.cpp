#include "tools/rig/SceneChannels.h"

#include "tools/support/Error.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>
#include <utility>

namespace Tolvane::Tools {
namespace {

// Beyond it a file is no rig of a person's making, and its channels are taken in their order.
constexpr std::size_t kMostMatches = 1'000'000;

template <typename Key>
bool hasKeys(const Key* keys, unsigned count) {
    return keys && count > 0;
}

// How far a channel's first keys are from a node's rest pose. Turns count only where they are the
// same all the time, for a turn often begins elsewhere.
double fromRest(const aiNodeAnim& channel, const aiNode& node) {
    aiVector3D position, scaling;
    aiQuaternion rotation;
    node.mTransformation.Decompose(scaling, rotation, position);
    double distance = 0;
    if (hasKeys(channel.mPositionKeys, channel.mNumPositionKeys))
        distance += static_cast<double>((channel.mPositionKeys[0].mValue - position).Length());
    if (hasKeys(channel.mScalingKeys, channel.mNumScalingKeys))
        distance += static_cast<double>((channel.mScalingKeys[0].mValue - scaling).Length());
    if (hasKeys(channel.mRotationKeys, channel.mNumRotationKeys) && channel.mNumRotationKeys == 1) {
        const aiQuaternion& turn = channel.mRotationKeys[0].mValue;
        distance += 1 - std::abs(static_cast<double>(turn.w * rotation.w + turn.x * rotation.x +
                                                     turn.y * rotation.y + turn.z * rotation.z));
    }
    // Where rounding is all that differs, the order decides.
    return distance > 1e-4 ? distance : 0;
}

// The nodes and parts of nodes of one name.
using Targets = std::vector<SceneTree::Part>;

Targets targetsOf(const std::string& name, const SceneTree& tree) {
    Targets targets = tree.partsNamed(name);
    for (const std::size_t node : tree.named(name))
        targets.emplace_back(node, tree.nodes()[node].node);
    return targets;
}

struct Match {
    double distance;
    bool isNoBone;
    std::size_t channel;
    std::size_t target;

    bool operator<(const Match& other) const {
        return std::tie(distance, isNoBone, channel, target) <
               std::tie(other.distance, other.isNoBone, other.channel, other.target);
    }
};

// Gives each channel of one name a target of that name, the closest ones first.
void match(const std::vector<const aiNodeAnim*>& named, const Targets& targets, const Bones& bones,
           Channels& channels) {
    std::vector<Match> matches;
    for (std::size_t channel = 0; channel < named.size(); ++channel)
        for (std::size_t target = 0; target < targets.size(); ++target) {
            const auto& [index, node] = targets[target];
            matches.push_back(
                {fromRest(*named[channel], *node), bones.count(index) == 0, channel, target});
        }
    std::sort(matches.begin(), matches.end());
    std::vector<bool> isMatched(named.size());
    for (const Match& match : matches)
        if (!isMatched[match.channel])
            isMatched[match.channel] =
                channels.emplace(targets[match.target].second, named[match.channel]).second;
}

// What a lone channel means: a bone, if there is one.
const aiNode* targetOf(const aiNodeAnim& channel, const Targets& targets, const Bones& bones) {
    const auto isBone = [&](const SceneTree::Part& part) { return bones.count(part.first) != 0; };
    if (std::none_of(targets.begin(), targets.end(), isBone)) return targets.front().second;
    return std::min_element(targets.begin(), targets.end(),
                            [&](const SceneTree::Part& a, const SceneTree::Part& b) {
                                return std::pair(!isBone(a), fromRest(channel, *a.second)) <
                                       std::pair(!isBone(b), fromRest(channel, *b.second));
                            })
        ->second;
}

template <typename Key>
std::vector<Key> keysOf(const Key* keys, unsigned count, const Key& atRest,
                        const std::string& path) {
    if (!hasKeys(keys, count)) return {atRest};
    std::vector<Key> copy(keys, keys + count);
    const bool finite = std::all_of(copy.begin(), copy.end(),
                                    [](const Key& key) { return std::isfinite(key.mTime); });
    const bool ordered = std::is_sorted(
        copy.begin(), copy.end(), [](const Key& a, const Key& b) { return a.mTime < b.mTime; });
    if (!finite || !ordered) throw Error(path + ": has animation keys that are out of order");
    return copy;
}

}  // namespace

Channels channelsOf(const aiAnimation& animation, const SceneTree& tree, const Bones& bones) {
    std::map<std::string, std::vector<const aiNodeAnim*>> byName;
    for (unsigned i = 0; animation.mChannels && i < animation.mNumChannels; ++i)
        if (const aiNodeAnim* channel = animation.mChannels[i])
            byName[channel->mNodeName.C_Str()].push_back(channel);

    Channels channels;
    for (const auto& [name, named] : byName) {
        const Targets targets = targetsOf(name, tree);
        if (targets.empty()) continue;
        if (named.size() == 1)
            channels.emplace(targetOf(*named.front(), targets, bones), named.front());
        else if (named.size() * targets.size() <= kMostMatches)
            match(named, targets, bones, channels);
        else
            for (std::size_t i = 0; i < std::min(named.size(), targets.size()); ++i)
                channels.emplace(targets[i].second, named[i]);
    }
    return channels;
}

bool areMoving(const Channels& channels, const SceneNode& node) {
    return channels.count(node.node) != 0 ||
           std::any_of(node.parts.begin(), node.parts.end(),
                       [&](const aiNode* part) { return channels.count(part) != 0; });
}

Channel channelOf(const aiNodeAnim& keys, const aiNode& node, const std::string& path) {
    aiVectorKey position(0, {});
    aiQuatKey rotation(0, {});
    aiVectorKey scaling(0, {});
    node.mTransformation.Decompose(scaling.mValue, rotation.mValue, position.mValue);
    return {keysOf(keys.mPositionKeys, keys.mNumPositionKeys, position, path),
            keysOf(keys.mRotationKeys, keys.mNumRotationKeys, rotation, path),
            keysOf(keys.mScalingKeys, keys.mNumScalingKeys, scaling, path)};
}

std::vector<const aiAnimation*> animationsOf(const aiScene& scene) {
    std::vector<const aiAnimation*> animations;
    for (unsigned i = 0; scene.mAnimations && i < scene.mNumAnimations; ++i)
        if (scene.mAnimations[i]) animations.push_back(scene.mAnimations[i]);
    return animations;
}

}  // namespace Tolvane::Tools
