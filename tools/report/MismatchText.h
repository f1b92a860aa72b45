// The part of a report that shows mismatches.
#pragma once

#include "tools/node/RunFrames.h"

#include <iosfwd>

namespace Tolvane::Tools {

// Those that the result keeps, type by type, and one line for the first of each other type.
void printMismatches(std::ostream& out, const RunResult& result);

}  // namespace Tolvane::Tools
