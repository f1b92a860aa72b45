// Finds the nodes that are the bones of a scene's skins.
#pragma once

#include "tools/rig/SceneTree.h"

#include <cstddef>
#include <map>
#include <set>

namespace Tolvane::Tools {

// The sum of the skin weights of each bone, by the bone's index in the tree. A bone that weighs
// nothing is in it as well. A skin only gives the names of its bones; where several nodes have such
// a name, the bone is the one that the skin's own matrices and the nodes around it tell.
using Bones = std::map<std::size_t, double>;

// Adds to `between` the nodes between the bones of one skin: those on the ways from these up to the
// lowest node that is above them all, with that one.
Bones bonesOf(const aiScene& scene, const SceneTree& tree, std::set<std::size_t>& between);

}  // namespace Tolvane::Tools
