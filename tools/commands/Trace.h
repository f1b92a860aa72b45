// `tolvane trace`: lists the host calls of one evaluation, and what they cost.
#pragma once

#include "tools/commands/Command.h"

namespace Tolvane::Tools {

Command addTrace(CLI::App& app);

}  // namespace Tolvane::Tools
