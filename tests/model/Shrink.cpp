#include "tests/model/Shrink.h"

#include <algorithm>
#include <utility>

namespace ModelTests {
namespace {

class Shrinking {
public:
    Shrinking(Bytes choices, const Shrinkable& shrinkable)
        : m_best(std::move(choices)), m_shrinkable(shrinkable) {}

    Bytes shrink() {
        bool isSmaller = m_shrinkable.fails(m_best);
        while (isSmaller) {
            isSmaller = leaveOutParts();
            for (const std::size_t length : {8u, 4u, 2u, 1u})
                isSmaller = leaveOutRuns(length) || isSmaller;
            isSmaller = lower() || isSmaller;
        }
        return m_best;
    }

private:
    bool leaveOutParts() {
        bool isSmaller = false;
        std::vector<std::size_t> parts = m_shrinkable.parts(m_best);
        for (std::size_t i = parts.size() - 1; i-- > 0;) {
            if (leaveOut(parts[i], parts[i + 1])) {
                isSmaller = true;
                parts = m_shrinkable.parts(m_best);
                i = std::min(i, parts.size() - 1);
            }
        }
        return isSmaller;
    }

    bool leaveOutRuns(std::size_t length) {
        bool isSmaller = false;
        for (std::size_t end = m_best.size(); end >= length; --end) {
            if (end <= m_best.size() && leaveOut(end - length, end)) isSmaller = true;
        }
        return isSmaller;
    }

    bool lower() {
        bool isSmaller = false;
        for (std::size_t i = 0; i < m_best.size(); ++i) {
            const unsigned value = m_best[i];
            for (const unsigned lower : {0u, value / 2, value - 1}) {
                if (lower >= value) continue;
                Bytes candidate = m_best;
                candidate[i] = static_cast<std::uint8_t>(lower);
                if (!take(std::move(candidate))) continue;
                isSmaller = true;
                break;
            }
        }
        return isSmaller;
    }

    bool leaveOut(std::size_t begin, std::size_t end) {
        if (begin >= m_best.size()) return false;
        const auto at = [&](std::size_t position) {
            return m_best.begin() + static_cast<std::ptrdiff_t>(std::min(position, m_best.size()));
        };
        Bytes candidate(m_best.begin(), at(begin));
        candidate.insert(candidate.end(), at(end), m_best.end());
        return candidate.size() < m_best.size() && take(std::move(candidate));
    }

    bool take(Bytes candidate) {
        if (m_attempts == kMostAttempts) return false;
        ++m_attempts;
        if (!m_shrinkable.fails(candidate)) return false;
        m_best = std::move(candidate);
        return true;
    }

    static constexpr unsigned kMostAttempts = 3000;

    Bytes m_best;
    const Shrinkable& m_shrinkable;
    unsigned m_attempts = 0;
};

}  // namespace

Bytes shrink(Bytes choices, const Shrinkable& shrinkable) {
    return Shrinking(std::move(choices), shrinkable).shrink();
}

}  // namespace ModelTests
