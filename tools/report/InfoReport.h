// Prints what a file holds, for a person or as one JSON object.
#pragma once

#include "tools/rig/RigInfo.h"

#include <iosfwd>

namespace Tolvane::Tools {

void printInfo(std::ostream& out, const RigInfo& info);
void printInfoAsJson(std::ostream& out, const RigInfo& info);

}  // namespace Tolvane::Tools
