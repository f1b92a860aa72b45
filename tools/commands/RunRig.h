// Sends one rig through the translation library, as `tolvane run` was asked to.
#pragma once

#include "tools/commands/Evaluate.h"
#include "tools/commands/RunArguments.h"
#include "tools/process/Child.h"

namespace Tolvane::Tools {

// Prints the report and writes the files that were asked for. True if every value came back equal.
// Throws Error if the run cannot be carried out, before anything is printed or written, and
// Interrupted.
bool runRig(const RunArguments& arguments);

// Throws Error for what is wrong with the request whatever the rig.
void refuseSenseless(const RunArguments& arguments);

// The same as runRig without printing anything. `watch` is told how far the run is.
Evaluation carryOut(const RunArguments& arguments, const Watch& watch);

}  // namespace Tolvane::Tools
