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

struct Match {
    double distance;
    bool isNoBone;
    std::size_t channel;
    std::size_t node;

    bool operator<(const Match& other) const {
        return std::tie(distance, isNoBone, channel, node) <
               std::tie(other.distance, other.isNoBone, other.channel, other.node);
    }
};

// Gives each channel of one name a node of that name, the closest ones first.
void match(const std::vector<const aiNodeAnim*>& named, const std::vector<std::size_t>& nodes,
           const SceneTree& tree, const std::map<std::size_t, double>& bones, Channels& channels) {
    std::vector<Match> matches;
    for (std::size_t channel = 0; channel < named.size(); ++channel)
        for (const std::size_t node : nodes)
            matches.push_back({fromRest(*named[channel], *tree.nodes()[node].node),
                               bones.count(node) == 0, channel, node});
    std::sort(matches.begin(), matches.end());
    std::vector<bool> isMatched(named.size());
    for (const Match& match : matches)
        if (!isMatched[match.channel])
            isMatched[match.channel] = channels.emplace(match.node, named[match.channel]).second;
}

// Which node a lone channel means: a bone, if there is one.
std::size_t nodeOf(const aiNodeAnim& channel, const std::vector<std::size_t>& nodes,
                   const SceneTree& tree, const std::map<std::size_t, double>& bones) {
    const auto bone =
        std::find_if(nodes.begin(), nodes.end(), [&](auto node) { return bones.count(node) != 0; });
    if (bone == nodes.end()) return nodes.front();
    return *std::min_element(bone, nodes.end(), [&](std::size_t a, std::size_t b) {
        const auto unlikeliness = [&](std::size_t node) {
            return std::pair(bones.count(node) == 0, fromRest(channel, *tree.nodes()[node].node));
        };
        return unlikeliness(a) < unlikeliness(b);
    });
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

Channels channelsOf(const aiAnimation& animation, const SceneTree& tree,
                    const std::map<std::size_t, double>& bones) {
    std::map<std::string, std::vector<const aiNodeAnim*>> byName;
    for (unsigned i = 0; animation.mChannels && i < animation.mNumChannels; ++i)
        if (const aiNodeAnim* channel = animation.mChannels[i])
            byName[channel->mNodeName.C_Str()].push_back(channel);

    Channels channels;
    for (const auto& [name, named] : byName) {
        const std::vector<std::size_t>& nodes = tree.named(name);
        if (nodes.empty()) continue;
        if (nodes.size() == 1)
            channels.emplace(nodes.front(), named.front());
        else if (named.size() == 1)
            channels.emplace(nodeOf(*named.front(), nodes, tree, bones), named.front());
        else if (named.size() * nodes.size() <= kMostMatches)
            match(named, nodes, tree, bones, channels);
        else
            for (std::size_t i = 0; i < std::min(named.size(), nodes.size()); ++i)
                channels.emplace(nodes[i], named[i]);
    }
    return channels;
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
