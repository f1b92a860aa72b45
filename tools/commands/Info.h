// `tolvane info`: says what a rig file holds, without evaluating anything.
#pragma once

#include "tools/commands/Command.h"

namespace Tolvane::Tools {

Command addInfo(CLI::App& app);

}  // namespace Tolvane::Tools
