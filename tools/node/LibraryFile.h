// Looks at the file of a translation library before it is loaded.
#pragma once

#include <string>

namespace Tolvane::Tools {

// Throws Error, which names `path` and the cause, for what cannot be a library that is whole:
// loading a pipe would wait for ever, and a file that is cut off may crash the loader, or seem to
// be whole.
void refuseNoLibrary(const std::string& path);

}  // namespace Tolvane::Tools
