// Reads files that describe types of the graph, in JSON. docs/types.md says how they look.
#pragma once

#include <Pelmor/Library.h>

#include <string>

namespace Tolvane::Tools {

// The graph's own types and those of the file. Throws Error, which names the file and the cause.
Pelmor::Library readTypes(const std::string& path);

}  // namespace Tolvane::Tools
