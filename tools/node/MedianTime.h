// The median of many times, in memory that does not grow with their number.
#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

namespace Tolvane::Tools {

class MedianTime {
public:
    // From more times than this on, only some are kept, evenly spread over all.
    static constexpr std::size_t kMostKept = 512;

    void add(std::chrono::nanoseconds time);

    // Zero of no times; of an even number, the mean of the two in the middle. Exact up to
    // kMostKept times.
    std::chrono::nanoseconds median() const;

private:
    std::vector<std::chrono::nanoseconds> m_kept;
    std::size_t m_added = 0;
    std::size_t m_step = 1;
};

}  // namespace Tolvane::Tools
