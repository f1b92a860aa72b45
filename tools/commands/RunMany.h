// `tolvane run` for several rigs: each in a process of its own, several at once. What happens to
// one is nothing to the others.
#pragma once

#include "tools/commands/RunArguments.h"

namespace Tolvane::Tools {

// Whether more than one rig may be meant, or somebody wants one treated that way.
bool isAboutMany(const RunArguments& arguments);

// Prints, as each rig is done, a row or a JSON object in a line, and what went wrong on standard
// error; then, unless that is JSON, what they add up to. Returns the exit status of the program: 2
// if any rig could not be run, else 1 if any failed, else 0. Throws Error, before anything is
// printed, if the request makes no sense for any rig, and Interrupted.
int runMany(const RunArguments& arguments);

}  // namespace Tolvane::Tools
