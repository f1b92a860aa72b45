// Gives a rig the movement of one of its file's animations.
#pragma once

#include "tools/rig/LoadRig.h"
#include "tools/rig/Rig.h"

#include <assimp/scene.h>

namespace Tolvane::Tools {

// Throws Error where the animation that was asked for is not there or is damaged.
void loadAnimation(Rig& rig, const aiScene& scene, const LoadOptions& options);

// The frames per second that an animation was made with; nothing where it does not tell.
std::optional<double> ownRate(const aiAnimation& animation);

}  // namespace Tolvane::Tools
