// Decides which nodes of a scene are joints, and takes over their names, hierarchy and rest
// matrices.
//
// Joints are the bones of skins; in a scene without skins, the nodes that an animation moves, but
// for cameras and lights; and whatever lies below a joint, or between the bones of one skin, and is
// no mesh, camera or light, nor the scene's root. In a scene without any of these, all nodes are
// joints.
#pragma once

#include "tools/rig/Rig.h"
#include "tools/rig/SceneChannels.h"
#include "tools/rig/SceneTree.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Tolvane::Tools {

// A scene as far as its joints depend on it.
struct Skeleton {
    SceneTree tree;
    // Their weights, by their nodes.
    Bones bones;
    std::set<std::size_t> betweenBones;
    // The nodes that any of the scene's animations moves.
    std::set<std::size_t> animated;
    // The nodes of the joints, in the order of Rig::joints.
    std::vector<std::size_t> joints;
    // False if all nodes were taken for joints.
    bool isFound = true;
};

// `root` is the name of a node: it and what is below it are the only joints then. Where several
// have the name, it is a bone, else one that is animated, else the first. Throws Error,
// which names `path`, if there is no such node, or if there are more joints than any real rig has.
Skeleton skeletonOf(const aiScene& scene, const std::string& path,
                    const std::optional<std::string>& root);

// Gives the rig the joints, and what carries them. Nodes between two joints that are none count as
// a part of the lower one. `channels` are those of the animation that moves the rig.
void addJoints(Rig& rig, const Skeleton& skeleton, const Channels& channels);

}  // namespace Tolvane::Tools
