// What this process takes of the machine at the moment.
#pragma once

#include <cstddef>

namespace Tolvane::Tools {

// Of the heap, in bytes, without what was freed.
std::size_t allocatedBytes();
std::size_t openFiles();
std::size_t threads();

}  // namespace Tolvane::Tools
