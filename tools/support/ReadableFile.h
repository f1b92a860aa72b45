// Tells files that can be read from everything else that a path may lead to.
#pragma once

#include <string>

namespace Tolvane::Tools {

// Throws Error, which names `path` and the cause, unless it is a regular file that can be opened
// and is not empty.
void refuseUnreadable(const std::string& path);

}  // namespace Tolvane::Tools
