// `tolvane show`: prints the values that a port's attribute has after an evaluation.
#pragma once

#include "tools/commands/Command.h"

namespace Tolvane::Tools {

Command addShow(CLI::App& app);

}  // namespace Tolvane::Tools
