// Lets a thread's heap run out. A binary that uses it gets the same global operator new as one that
// uses AllocationCount.
#pragma once

#include <cstdint>

namespace TestSupport {

class AllocationFailure {
public:
    // The `nth` allocation of this thread from now on, counted from 1, throws std::bad_alloc; none
    // does for 0. One failure at a time.
    explicit AllocationFailure(std::uint64_t nth = 1) noexcept;
    AllocationFailure(const AllocationFailure&) = delete;
    AllocationFailure& operator=(const AllocationFailure&) = delete;
    ~AllocationFailure();

    // Whether that allocation is still to come.
    bool isPending() const noexcept;
};

}  // namespace TestSupport
