// `tolvane run`: sends the frames of a rig through a translation library, into the graph and back,
// and reports whether what came back equals what went in.
#pragma once

#include "tools/commands/Command.h"

namespace Tolvane::Tools {

Command addRun(CLI::App& app);

}  // namespace Tolvane::Tools
