#include "tools/node/CompareData.h"

#include "tools/node/DataPath.h"
#include "tools/node/LeafAccess.h"
#include "tools/node/LeafText.h"
#include "tools/node/SpoilData.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <algorithm>
#include <utility>

namespace Tolvane::Tools {
namespace {

bool sameLeaf(DataShape::Kind kind, const VDataHandle& a, const VDataHandle& b) {
    switch (kind) {
        case DataShape::Kind::Matrix:
            return sameBits(a.asMatrix(), b.asMatrix());
        case DataShape::Kind::String:
            return sameBits(a.asString(), b.asString());
        case DataShape::Kind::Double:
            return sameBits(a.asDouble(), b.asDouble());
        case DataShape::Kind::Bool:
            return a.asBool() == b.asBool();
        case DataShape::Kind::Int:
            return a.asInt() == b.asInt();
        case DataShape::Kind::Enum:
            return a.asShort() == b.asShort();
        case DataShape::Kind::Compound:
        case DataShape::Kind::Empty:
        case DataShape::Kind::Unknown:
            break;
    }
    return false;
}

class Comparer {
public:
    Comparer(Comparison& comparison, const MismatchListener& listener)
        : m_comparison(comparison), m_listener(listener) {}

    void compare(const DataPlace& expected, const DataPlace& actual, const DataPath& path) {
        const DataShape& shape = expected.shape;
        if (shape.kind != actual.shape.kind || shape.isArray != actual.shape.isArray ||
            shape.children.size() != actual.shape.children.size())
            return mismatch(path, "is another kind of attribute", [](Mismatch&) {});
        if (expected.handle.isNull() || actual.handle.isNull())
            return mismatch(path, "has no data", [](Mismatch&) {});
        if (shape.isArray) return compareElements(expected, actual, path);
        compareOne(expected, actual, path);
    }

private:
    void compareElements(const DataPlace& expected, const DataPlace& actual, const DataPath& path) {
        VArrayDataHandle expectedArray(expected.handle);
        VArrayDataHandle actualArray(actual.handle);
        const unsigned expectedCount = expectedArray.elementCount();
        const unsigned actualCount = actualArray.elementCount();
        if (expectedCount != actualCount)
            mismatch(path, "has another number of elements",
                     [&](Mismatch& found) { addValues(expectedCount, actualCount, found); });

        for (unsigned i = std::min(expectedCount, actualCount); i > 0; --i) {
            const DataPath elementPath(path, expectedArray.elementIndex());
            if (actualArray.elementIndex() != expectedArray.elementIndex())
                mismatch(elementPath, kAtAnotherIndex, [&](Mismatch& found) {
                    addValues(expectedArray.elementIndex(), actualArray.elementIndex(), found);
                });
            compareOne({expected.shape, expectedArray.outputValue()},
                       {actual.shape, actualArray.outputValue()}, elementPath);
            expectedArray.next();
            actualArray.next();
        }
    }

    // Compares a single attribute or one element of an array.
    void compareOne(const DataPlace& expected, const DataPlace& actual, const DataPath& path) {
        const DataShape& shape = expected.shape;
        if (shape.kind == DataShape::Kind::Empty) return;
        if (shape.kind != DataShape::Kind::Compound) {
            ++m_comparison.leavesCompared;
            if (!sameLeaf(shape.kind, expected.handle, actual.handle))
                mismatch(path, isSpoilt(actual) ? "was not written" : "differs",
                         [&](Mismatch& found) { addValues(expected, actual, found); });
            return;
        }
        for (std::size_t i = 0; i < shape.children.size(); ++i)
            compare(expected.child(i), actual.child(i),
                    DataPath(path, actual.shape.children[i].name));
    }

    // The values become text only for those who want them.
    template <typename AddValues>
    void mismatch(const DataPath& path, const char* what, AddValues addValuesTo) {
        if (m_comparison.mismatches > 0 && !m_listener) {
            ++m_comparison.mismatches;
            return;
        }
        Mismatch found = path.mismatch(what);
        addValuesTo(found);
        m_comparison.addMismatch(std::move(found), m_listener);
    }

    Comparison& m_comparison;
    const MismatchListener& m_listener;
};

}  // namespace

void Comparison::addMismatch(Mismatch mismatch, const MismatchListener& listener) {
    if (listener) listener(mismatch);
    if (++mismatches == 1) firstMismatch = std::move(mismatch);
}

void compareData(const DataPlace& expected, const DataPlace& actual, Comparison& comparison,
                 const MismatchListener& listener) {
    Comparer(comparison, listener).compare(expected, actual, DataPath(actual.shape.name));
}

}  // namespace Tolvane::Tools
