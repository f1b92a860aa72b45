// Makes a rig of a file. Its joints are the nodes that skin a mesh or carry an animation channel,
// and what lies between a joint and one further down; where there are neither, all nodes.
#pragma once

#include "tools/rig/Rig.h"

#include <optional>
#include <string>

namespace Tolvane::Tools {

struct LoadOptions {
    // The name of one of the file's animations; the first without.
    std::optional<std::string> animation = {};
    // How many frames of each second are sampled; without, as many as the animation was made with,
    // or 30 where it does not tell.
    std::optional<double> framesPerSecond = {};
};

// Throws Error, with a line that names the file and the cause.
Rig loadRig(const std::string& path, const LoadOptions& options = {});

}  // namespace Tolvane::Tools
