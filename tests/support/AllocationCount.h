// Counts what a thread takes from the heap and gives back. A binary that uses it gets a global
// operator new and delete that count, which the libraries that it loads then use as well;
// allocations with an alignment of their own are not counted.
#pragma once

#include <cstdint>

namespace TestSupport {

class AllocationCount {
public:
    AllocationCount() noexcept;

    // Both since this object was made, by the thread that asks, which is the one that made it.
    std::uint64_t allocations() const noexcept;
    std::uint64_t deallocations() const noexcept;

    // How many blocks are still to be given back.
    std::int64_t outstanding() const noexcept {
        return static_cast<std::int64_t>(allocations() - deallocations());
    }

private:
    std::uint64_t m_allocationsBefore;
    std::uint64_t m_deallocationsBefore;
};

}  // namespace TestSupport
