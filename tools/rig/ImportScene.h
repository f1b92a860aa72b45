// Reads a rig file with Assimp. Whatever is wrong with the file becomes an error of one line.
#pragma once

#include <string>
#include <vector>

#include <assimp/Importer.hpp>
#include <assimp/scene.h>

namespace Tolvane::Tools {

// The scene belongs to `importer`. Adds every file that was opened to `filesRead`: this one and
// those that it refers to. Throws Error, with a line that names the file and the cause.
const aiScene& importScene(Assimp::Importer& importer, const std::string& path,
                           std::vector<std::string>& filesRead);

}  // namespace Tolvane::Tools
