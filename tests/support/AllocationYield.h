// Lets the other threads run at each allocation of one, so that they arrive in the middle of what
// it does. A binary that uses it gets the same global operator new as one that uses
// AllocationCount.
#pragma once

namespace TestSupport {

class AllocationYield {
public:
    AllocationYield() noexcept;
    AllocationYield(const AllocationYield&) = delete;
    AllocationYield& operator=(const AllocationYield&) = delete;
    ~AllocationYield();
};

}  // namespace TestSupport
