// What the user asked for, read from the command line.
#pragma once

#include "tools/LoadRig.h"
#include "tools/Run.h"

#include <optional>
#include <string>

namespace Tolvane {

struct Arguments {
    std::string file;
    std::string plugin;
    LoadOptions load;
    RunOptions run;
    std::optional<std::string> picture;
    bool json = false;
};

// Nothing where help or the version was asked for and has been printed. Throws Error for bad usage.
std::optional<Arguments> parseArguments(int count, const char* const* arguments);

}  // namespace Tolvane
