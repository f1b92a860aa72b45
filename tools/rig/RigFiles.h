// Finds rigs in folders.
#pragma once

#include "tools/support/Error.h"

#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct FoundRig {
    std::string path;
    // Set for a folder in which rigs were looked for and that cannot be read, or that holds none.
    std::optional<Error> failure = {};
};

// The files of the folder and of those in it whose names end like those of rigs, and the folders
// among these that cannot be read, sorted; if there are none, the folder itself. A link to a folder
// is not followed.
std::vector<FoundRig> rigsIn(const std::string& folder);

}  // namespace Tolvane::Tools
