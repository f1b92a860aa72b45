// What a file holds, as far as it can be told without evaluating anything.
#pragma once

#include "tools/rig/World.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct AnimationInfo {
    std::string name;
    // From time zero to the last key.
    double seconds;
    double framesPerSecond;
    std::size_t frameCount;
};

struct RigInfo {
    std::string file;
    // False if nothing in the file showed which nodes are joints, so that every one was taken.
    bool hasSkeleton;
    std::size_t joints;
    // Joints that are bones of skins, that an animation moves, and that are neither. The first two
    // may overlap.
    std::size_t bones;
    std::size_t animated;
    std::size_t inBetween;
    std::size_t meshes;
    // Those of the meshes that have bones.
    std::size_t skins;
    World world;
    std::vector<AnimationInfo> animations;
};

// Throws Error, with a line that names the file and the cause.
RigInfo readInfo(const std::string& path);

}  // namespace Tolvane::Tools
