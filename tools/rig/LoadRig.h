// Makes a rig of a file. Its joints are the nodes that skin a mesh or have an animation channel,
// and all nodes between two of these; in a file without such nodes, all nodes are joints.
#pragma once

#include "tools/rig/Rig.h"

#include <optional>
#include <string>

namespace Tolvane::Tools {

struct LoadOptions {
    // The name of one of the file's animations. If unset, its first animation.
    std::optional<std::string> animation = {};
    // How many frames to sample per second. If unset, the rate that the animation was made with, or
    // 30 if that is not known.
    std::optional<double> framesPerSecond = {};
};

// Throws Error, with a line that names the file and the cause.
Rig loadRig(const std::string& path, const LoadOptions& options = {});

}  // namespace Tolvane::Tools
