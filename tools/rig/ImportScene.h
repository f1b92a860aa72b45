// Reads a rig file with Assimp, and turns whatever can be wrong with the file into one line.
#pragma once

#include <string>
#include <vector>

#include <assimp/Importer.hpp>
#include <assimp/scene.h>

namespace Tolvane::Tools {

// The scene belongs to `importer`. Every file that was opened for it, this one and those that it
// refers to, is added to `filesRead`. Throws Error, with a line that names the file and the cause.
const aiScene& importScene(Assimp::Importer& importer, const std::string& path,
                           std::vector<std::string>& filesRead);

}  // namespace Tolvane::Tools
