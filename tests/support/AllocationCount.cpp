#include "tests/support/AllocationCount.h"

#include "tests/support/AllocationFailure.h"
#include "tests/support/AllocationYield.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <thread>

namespace {

// Pages that nobody ever touches cost nothing, and stay so.
constexpr std::size_t kMaxRubbish = std::size_t{1} << 20;

thread_local std::uint64_t t_allocations = 0;
thread_local std::uint64_t t_deallocations = 0;
// 0 where none is to fail.
thread_local std::uint64_t t_allocationsUntilFailure = 0;
thread_local bool t_yields = false;

}  // namespace

namespace TestSupport {

AllocationCount::AllocationCount() noexcept
    : m_allocationsBefore(t_allocations), m_deallocationsBefore(t_deallocations) {}

std::uint64_t AllocationCount::allocations() const noexcept {
    return t_allocations - m_allocationsBefore;
}

std::uint64_t AllocationCount::deallocations() const noexcept {
    return t_deallocations - m_deallocationsBefore;
}

AllocationFailure::AllocationFailure(std::uint64_t nth) noexcept {
    t_allocationsUntilFailure = nth;
}

AllocationFailure::~AllocationFailure() { t_allocationsUntilFailure = 0; }

bool AllocationFailure::isPending() const noexcept { return t_allocationsUntilFailure > 0; }

AllocationYield::AllocationYield() noexcept { t_yields = true; }

AllocationYield::~AllocationYield() { t_yields = false; }

}  // namespace TestSupport

void* operator new(std::size_t size) {
    if (t_yields) std::this_thread::yield();
    if (t_allocationsUntilFailure > 0 && --t_allocationsUntilFailure == 0) throw std::bad_alloc();
    void* block = std::malloc(std::max<std::size_t>(size, 1));
    if (!block) throw std::bad_alloc();
    ++t_allocations;
    // Rubbish, so that nobody takes for granted what is often in fresh memory.
    std::memset(block, 0xcd, std::min(size, kMaxRubbish));
    return block;
}

void operator delete(void* block) noexcept {
    if (block) ++t_deallocations;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept { operator delete(block); }
