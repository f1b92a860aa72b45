// Finds the nodes that the channels of an animation move.
#pragma once

#include "tools/rig/Animation.h"
#include "tools/rig/SceneBones.h"
#include "tools/rig/SceneTree.h"

#include <map>
#include <string>
#include <vector>

namespace Tolvane::Tools {

// The channels of an animation by what they move: a node or a part of one. A channel only gives a
// name; where several nodes have it, a bone is meant, or the node whose rest pose the channel's
// first keys come closest to, or the first.
using Channels = std::map<const aiNode*, const aiNodeAnim*>;

Channels channelsOf(const aiAnimation& animation, const SceneTree& tree, const Bones& bones);

// Whether any of the channels moves the node or a part of it.
bool areMoving(const Channels& channels, const SceneNode& node);

// The keys of a channel. What it has no keys for stays as in the node's rest pose: the position,
// say, where it only rotates. Throws Error, which names `path`, if the keys are damaged.
Channel channelOf(const aiNodeAnim& keys, const aiNode& node, const std::string& path);

// The animations of a scene, without any that a broken file leaves out.
std::vector<const aiAnimation*> animationsOf(const aiScene& scene);

}  // namespace Tolvane::Tools
