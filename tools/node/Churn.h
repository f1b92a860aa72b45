// How much of a rig takes part in an evaluation. Under churn this changes from one evaluation to
// the next, so that host arrays fill, empty, grow and shrink.
#pragma once

#include <algorithm>
#include <cstddef>

namespace Tolvane::Tools {

enum class Share { All, None, Half, OneMoreThanHalf };

// Under churn the shares follow each other in their order, again and again.
constexpr std::size_t kShareCount = 4;

constexpr Share churnShare(std::size_t evaluation) {
    return static_cast<Share>(evaluation % kShareCount);
}

// How many of `total` joints or limbs a share is.
constexpr std::size_t countOf(Share share, std::size_t total) {
    switch (share) {
        case Share::All:
            return total;
        case Share::None:
            return 0;
        case Share::Half:
            return total / 2;
        case Share::OneMoreThanHalf:
            break;
    }
    return std::min(total / 2 + 1, total);
}

}  // namespace Tolvane::Tools
