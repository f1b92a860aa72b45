// What `tolvane run` is asked for.
#pragma once

#include "tools/process/Limits.h"

#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct RunArguments {
    std::string file;
    std::string plugin;
    std::optional<std::string> types;
    std::optional<std::string> frames;
    std::optional<std::string> framesPerSecond;
    std::optional<std::string> animation;
    bool churn = false;
    std::optional<std::string> picture;
    bool json = false;
    bool quiet = false;
    bool verbose = false;
    // Whether the report is to be coloured, which only the process that prints it can tell.
    bool inColour = false;
    Limits limits;
};

}  // namespace Tolvane::Tools
