// Sends one rig through the translation library, as `tolvane run` was asked to.
#pragma once

#include "tools/commands/RunArguments.h"

namespace Tolvane::Tools {

// Prints the report and writes the files that were asked for. True if every value came back equal.
// Throws Error if the run cannot be carried out, before anything is printed or written, and
// Interrupted.
bool runRig(const RunArguments& arguments);

}  // namespace Tolvane::Tools
