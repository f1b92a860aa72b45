// Reads files that describe types of the graph, in JSON. docs/types.md says how they look.
#pragma once

#include <Pelmor/Library.h>

#include <string>
#include <vector>

namespace Tolvane::Tools {

struct TypesOfFile {
    // The graph's own types and those of the file.
    Pelmor::Library library;
    // The structs of the file, in its order.
    std::vector<std::string> structNames;
};

// Throws Error, which names the file and the cause.
TypesOfFile readTypes(const std::string& path);

}  // namespace Tolvane::Tools
