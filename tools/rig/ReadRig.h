// Reads rig files in a process of its own. Third-party readers crash on some files, print, run for
// ever or take all memory, in reading as in cleaning up afterwards; here that is an error of one
// line like any other.
#pragma once

#include "tools/process/Child.h"
#include "tools/process/Limits.h"
#include "tools/rig/LoadRig.h"
#include "tools/rig/Rig.h"
#include "tools/rig/RigInfo.h"

#include <functional>
#include <string>

namespace Tolvane::Tools {

// As `loadRig` and `loadInfo`. Each takes some milliseconds more.
Rig readRig(const std::string& path, const LoadOptions& options, const Limits& limits,
            const Watch& watch = {});
RigInfo readInfo(const std::string& path, const std::optional<std::string>& root,
                 const Limits& limits);

// Calls `read`, which reads `path`, in that process, and returns what it returns. What it prints is
// dropped. Throws Error, with a line that names the file and the cause, and Interrupted.
std::string inReadingProcess(const std::string& path, const Limits& limits,
                             const std::function<std::string()>& read, const Watch& watch = {});

}  // namespace Tolvane::Tools
