// Gives a rig its joints and their movement in one of its file's animations.
#pragma once

#include "tools/rig/LoadRig.h"
#include "tools/rig/Rig.h"
#include "tools/rig/SceneJoints.h"

#include <assimp/scene.h>

namespace Tolvane::Tools {

// A file without animations leaves the joints in their rest pose, with one frame. Throws Error if
// the animation that was asked for does not exist or is damaged.
void loadAnimation(Rig& rig, const aiScene& scene, const Skeleton& skeleton,
                   const LoadOptions& options);

}  // namespace Tolvane::Tools
