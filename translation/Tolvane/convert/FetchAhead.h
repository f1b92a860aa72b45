// Prefetching for arrays that the nearer caches cannot hold. Asking for the lines of later elements
// in time hides the latency of memory, so that its bandwidth is the limit.
#pragma once

#include <Pelmor/Array.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace Tolvane {

// For callers that fill the elements in order, before they fill the one at `position`.
template <typename Element>
void fetchAheadOf(Pelmor::Array<Element>& elements, std::uint64_t position) noexcept {
    constexpr std::uint64_t kCachedBytes = 1u << 20, kLine = 64;
    constexpr std::uint64_t kElementsAhead = std::max<std::uint64_t>(2, 2048 / sizeof(Element));
    if (elements.size() * sizeof(Element) < kCachedBytes) return;
    if (position + kElementsAhead >= elements.size()) return;
    const auto* coming = reinterpret_cast<std::byte*>(&elements[position + kElementsAhead]);
    for (std::uint64_t i = 0; i < sizeof(Element); i += kLine) __builtin_prefetch(coming + i, 1);
}

}  // namespace Tolvane
