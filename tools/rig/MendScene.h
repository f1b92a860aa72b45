// Puts right what Assimp's readers leave broken in scenes of whole files.
#pragma once

#include <string>
#include <vector>

#include <assimp/scene.h>

namespace Tolvane::Tools {

// Where several bones of a skin have the same name, the reader of FBX files puts one of them in the
// places of all, and the scene would delete it as often. Gives each place a bone of its own.
void separateSharedBones(aiScene& scene);

// An FBX file that announces a rate of its own and gives none is read backwards. Turns the time of
// its animations round.
void turnTimeForward(aiScene& scene);

// The reader of MD5 files overlooks the frames per second that they state. Takes them from `files`,
// those that the scene was read from.
void takeStatedRate(aiScene& scene, const std::vector<std::string>& files);

}  // namespace Tolvane::Tools
