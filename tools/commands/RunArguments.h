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
    Limits limits;
};

}  // namespace Tolvane::Tools
