// Puts right what Assimp's readers leave broken in scenes of whole files.
#pragma once

#include <assimp/scene.h>

namespace Tolvane::Tools {

// Where several bones of a skin have the same name, the reader of FBX files puts one of them in the
// places of all, and the scene would delete it as often. Gives each place a bone of its own.
void separateSharedBones(aiScene& scene);

}  // namespace Tolvane::Tools
