// The page of a run: a single HTML file that plays the skeleton as it came back over the one that
// went in, and lists what differs. It needs no network and no other file.
#pragma once

#include "tools/node/RunFrames.h"
#include "tools/rig/Rig.h"

#include <string>

namespace Tolvane::Tools {

// The run must have been recorded. `libraryName` is the name of its translation.
std::string makePage(const Rig& rig, const std::string& libraryName, const RunResult& result);

}  // namespace Tolvane::Tools
