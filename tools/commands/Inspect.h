// `tolvane inspect`: shows what a translation library says of itself, and the attributes that ports
// of its types get.
#pragma once

#include "tools/commands/Command.h"

namespace Tolvane::Tools {

Command addInspect(CLI::App& app);

}  // namespace Tolvane::Tools
