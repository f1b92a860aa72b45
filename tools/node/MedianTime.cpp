#include "tools/node/MedianTime.h"

#include <algorithm>

namespace Tolvane::Tools {
namespace {

// Odd, because under churn every fourth evaluation is alike.
constexpr std::size_t kThinning = 3;

}  // namespace

void MedianTime::add(std::chrono::nanoseconds time) {
    if (m_added++ % m_step != 0) return;
    if (m_kept.empty()) m_kept.reserve(kMostKept);
    if (m_kept.size() == kMostKept) {
        std::size_t left = 0;
        for (std::size_t i = 0; i < kMostKept; i += kThinning) m_kept[left++] = m_kept[i];
        m_kept.resize(left);
        m_step *= kThinning;
        if ((m_added - 1) % m_step != 0) return;
    }
    m_kept.push_back(time);
}

std::chrono::nanoseconds MedianTime::median() const {
    if (m_kept.empty()) return {};
    auto times = m_kept;
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    if (times.size() % 2 == 1) return *middle;
    return (*middle + *std::max_element(times.begin(), middle)) / 2;
}

}  // namespace Tolvane::Tools
