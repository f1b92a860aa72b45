// What `tolvane run` is asked for.
#pragma once

#include "tools/process/Limits.h"
#include "tools/rig/LoadRig.h"

#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct RunArguments {
    // Each is a rig or a folder of rigs. At least one.
    std::vector<std::string> files;
    // How many rigs are run at once. If set, a single one is treated like many too.
    std::optional<unsigned> jobs;
    // The rig that a run is about.
    std::string file;
    std::string plugin;
    std::optional<std::string> types;
    std::optional<std::string> frames;
    LoadOptions load;
    bool churn = false;
    std::optional<std::string> picture;
    std::optional<std::string> page;
    bool json = false;
    bool quiet = false;
    bool verbose = false;
    // Whether the report is to be coloured, which only the process that prints it can tell.
    bool inColour = false;
    Limits limits;
};

}  // namespace Tolvane::Tools
