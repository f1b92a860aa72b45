// Tells which nodes of a scene are joints, and takes their names, hierarchy and rest matrices.
#pragma once

#include "tools/rig/Rig.h"

#include <string>
#include <vector>

#include <assimp/scene.h>

namespace Tolvane::Tools {

// Throws Error where there are more joints than any rig has. `path` is for that alone.
std::vector<Joint> jointsOf(const aiScene& scene, const std::string& path);

}  // namespace Tolvane::Tools
