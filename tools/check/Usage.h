// What this process takes of the machine at the moment.
#pragma once

#include <cstddef>
#include <functional>

namespace Tolvane::Tools {

// Of the heap, in bytes, without what was freed.
std::size_t allocatedBytes();
std::size_t openFiles();
std::size_t threads();

// By how many bytes the heap grows each time that `round` is called again, once it has been called:
// the least of a dozen times, so that what grows now and then does not count. Negative if it
// shrinks.
std::ptrdiff_t growthOf(const std::function<void()>& round);

}  // namespace Tolvane::Tools
