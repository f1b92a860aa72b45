// Decides which nodes of a scene are joints, and takes over their names, hierarchy and rest
// matrices.
#pragma once

#include "tools/rig/Rig.h"

#include <string>
#include <vector>

#include <assimp/scene.h>

namespace Tolvane::Tools {

// Throws Error, which names `path`, if there are more joints than any real rig has.
std::vector<Joint> jointsOf(const aiScene& scene, const std::string& path);

}  // namespace Tolvane::Tools
