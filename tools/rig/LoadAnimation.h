// Gives a rig the movement of one of its file's animations.
#pragma once

#include "tools/rig/LoadRig.h"
#include "tools/rig/Rig.h"

#include <assimp/scene.h>

namespace Tolvane::Tools {

// A file without animations leaves the rig in its rest pose, with one frame. Throws Error if the
// animation that was asked for does not exist or is damaged.
void loadAnimation(Rig& rig, const aiScene& scene, const LoadOptions& options);

// The frames per second that an animation was made with; nothing if that is not known.
std::optional<double> ownRate(const aiAnimation& animation);

}  // namespace Tolvane::Tools
