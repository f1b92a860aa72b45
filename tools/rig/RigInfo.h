// What a file holds, as far as it can be told without evaluating anything.
#pragma once

#include "tools/rig/World.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct TimingInfo {
    // From time zero to the last key.
    double seconds = 0;
    double framesPerSecond = 0;
    std::size_t frameCount = 0;
};

struct AnimationInfo {
    std::string name;
    // Nothing if the file gives the animation's time no unit.
    std::optional<TimingInfo> timing = {};
};

struct RigInfo {
    std::string file;
    // False if nothing in the file showed which nodes are joints, so that every one was taken.
    bool hasSkeleton = true;
    std::size_t joints = 0;
    // Joints that are bones of skins, that an animation moves, and that are neither. The first two
    // may overlap.
    std::size_t bones = 0;
    std::size_t animated = 0;
    std::size_t inBetween = 0;
    std::size_t meshes = 0;
    // Those of the meshes that have bones.
    std::size_t skins = 0;
    World world = {};
    std::vector<AnimationInfo> animations = {};
};

// `root` is as in LoadOptions. Throws Error, with a line that names the file and the cause.
RigInfo loadInfo(const std::string& path, const std::optional<std::string>& root = {});

}  // namespace Tolvane::Tools
