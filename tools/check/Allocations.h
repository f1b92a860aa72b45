// Counts what this process takes of the heap, whoever takes it.
#pragma once

#include <cstdint>

namespace Tolvane::Tools {

struct Allocations {
    std::uint64_t count;
    // That were asked for.
    std::uint64_t bytes;
};

// From here on, for the rest of the process, by whatever has been loaded already. Throws Error if
// this process does not allow that.
void countAllocations();

// Those of all threads since then. An array that is reallocated counts anew.
Allocations allocations() noexcept;

}  // namespace Tolvane::Tools
