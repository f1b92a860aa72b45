// Finds rigs in folders.
#pragma once

#include <string>
#include <vector>

namespace Tolvane::Tools {

// The files of the folder and of those in it whose names end like those of rigs, sorted. A link to
// a folder is not followed. Throws Error if there are none or the folder cannot be read.
std::vector<std::string> rigFilesIn(const std::string& folder);

}  // namespace Tolvane::Tools
