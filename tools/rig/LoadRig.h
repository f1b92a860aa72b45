// Makes a rig of a file. SceneJoints.h says which of its nodes are joints.
#pragma once

#include "tools/rig/Rig.h"

#include <optional>
#include <string>

namespace Tolvane::Tools {

struct LoadOptions {
    // The name of one of the file's animations. If unset, its first animation.
    std::optional<std::string> animation = {};
    // The name of the node that is the topmost joint; of several nodes, the first. If unset, the
    // file itself tells its joints.
    std::optional<std::string> root = {};
    // How many frames to sample per second. If unset, the rate that the animation was made with, or
    // 30 if that is not known.
    std::optional<double> framesPerSecond = {};
};

// Throws Error, with a line that names the file and the cause.
Rig loadRig(const std::string& path, const LoadOptions& options = {});

}  // namespace Tolvane::Tools
