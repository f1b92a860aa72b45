// `tolvane check`: tells whether a translation library is fit to be loaded by a host.
#pragma once

#include "tools/commands/Command.h"

namespace Tolvane::Tools {

Command addCheck(CLI::App& app);

}  // namespace Tolvane::Tools
