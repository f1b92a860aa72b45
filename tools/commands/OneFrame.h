// A rig of which one frame is wanted.
#pragma once

#include "tools/inspect/RigData.h"
#include "tools/process/Limits.h"
#include "tools/rig/LoadRig.h"

#include <string>

namespace Tolvane::Tools {

// Throws Error if the file cannot be read, or has no such frame.
Rig readRigWithFrame(const std::string& file, const LoadOptions& options, std::size_t frame,
                     const Limits& limits);

}  // namespace Tolvane::Tools
