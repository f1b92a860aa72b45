#include "tools/node/FindUnfilled.h"

#include "tools/node/FillWalk.h"
#include "tools/node/LeafAccess.h"
#include "tools/node/LeafText.h"

#include <utility>

namespace Tolvane::Tools {
namespace {

// Takes no more notice of anything once it has found something.
class Finder {
public:
    std::size_t array(const DataPlace& place, const DataPath& path, std::size_t expected) {
        if (m_found) return 0;
        const std::size_t actual = VArrayDataHandle(place.handle).elementCount();
        if (actual == expected) return expected;
        found(path, "does not hold as many elements as were put in", [&](Mismatch& mismatch) {
            addValues(static_cast<std::int64_t>(expected), static_cast<std::int64_t>(actual),
                      mismatch);
        });
        return 0;
    }

    void element(const DataPath& path, unsigned actual) {
        if (m_found || path.index() == actual) return;
        found(path, "is at another index",
              [&](Mismatch& mismatch) { addValues(path.index().value(), actual, mismatch); });
    }

    template <typename Value>
    void value(const DataPlace& place, const DataPath& path, const Value& expected) {
        if (m_found) return;
        const Value& actual = held(place.handle, expected);
        if (sameBits(expected, actual)) return;
        found(path, "does not hold what it was filled with",
              [&](Mismatch& mismatch) { addValues(place.shape, expected, actual, mismatch); });
    }

    std::optional<Mismatch> take() { return std::move(m_found); }

private:
    template <typename AddValues>
    void found(const DataPath& path, const char* what, AddValues addValuesTo) {
        m_found = path.mismatch(what);
        addValuesTo(*m_found);
    }

    std::optional<Mismatch> m_found;
};

}  // namespace

std::optional<Mismatch> findUnfilled(const FillPlan& plan, const DataPlace& port,
                                     const FrameData& data, std::uint64_t seed) {
    Finder finder;
    FillWalk(finder).port(plan, port, data, seed);
    return finder.take();
}

}  // namespace Tolvane::Tools
