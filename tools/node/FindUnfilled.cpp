#include "tools/node/FindUnfilled.h"

#include "tools/node/DataPath.h"
#include "tools/node/LeafText.h"

#include <OpenVornik/VArrayDataHandle.h>

namespace Tolvane::Tools {
namespace {

// Walks arrays in the order in which they were filled.
class Finder {
public:
    explicit Finder(const ElementCounts& counts) : m_next(counts.begin()) {}

    std::optional<Mismatch> find(const DataPlace& place, const DataPath& path) {
        const auto kind = place.shape.kind;
        if (kind == DataShape::Kind::Empty || kind == DataShape::Kind::Unknown) return std::nullopt;
        if (!place.shape.isArray) return findBelow(place, path);
        VArrayDataHandle array(place.handle);
        const std::size_t expected = *m_next++, actual = array.elementCount();
        if (expected != actual) {
            Mismatch mismatch = path.mismatch("does not hold as many elements as were put in");
            addValues(static_cast<std::int64_t>(expected), static_cast<std::int64_t>(actual),
                      mismatch);
            return mismatch;
        }
        for (std::size_t i = 0; i < actual; ++i, array.next())
            if (auto found = findBelow({place.shape, array.outputValue()},
                                       DataPath(path, array.elementIndex())))
                return found;
        return std::nullopt;
    }

private:
    // Of a single value or one element of an array.
    std::optional<Mismatch> findBelow(const DataPlace& place, const DataPath& path) {
        for (std::size_t i = 0; i < place.shape.children.size(); ++i)
            if (auto found = find(place.child(i), DataPath(path, place.shape.children[i].name)))
                return found;
        return std::nullopt;
    }

    ElementCounts::const_iterator m_next;
};

}  // namespace

std::optional<Mismatch> findUnfilled(const DataPlace& port, const ElementCounts& counts) {
    return Finder(counts).find(port, DataPath(port.shape.name));
}

}  // namespace Tolvane::Tools
