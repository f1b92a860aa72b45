#include "tools/node/CompareData.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <algorithm>
#include <cstring>
#include <optional>

namespace Tolvane::Tools {
namespace {

// The way from the top attribute to what is being compared. It becomes text only for a mismatch,
// for most comparisons find none.
struct Path {
    const Path* above;
    const std::string& name;
    std::optional<unsigned> index;

    std::string text() const {
        std::string text = above ? above->text() : "";
        if (index) return text + "[" + std::to_string(*index) + "]";
        return text + (above ? "." : "") + name;
    }
};

template <typename Value>
bool sameBits(const Value& a, const Value& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

bool sameLeaf(DataShape::Kind kind, const VDataHandle& a, const VDataHandle& b) {
    switch (kind) {
        case DataShape::Kind::Matrix:
            return sameBits(a.asMatrix(), b.asMatrix());
        case DataShape::Kind::String:
            return a.asString() == b.asString();
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
    explicit Comparer(Comparison& comparison) : m_comparison(comparison) {}

    void compare(const DataPlace& expected, const DataPlace& actual, const Path& path) {
        const DataShape& shape = expected.shape;
        if (shape.kind != actual.shape.kind || shape.isArray != actual.shape.isArray ||
            shape.children.size() != actual.shape.children.size())
            return mismatch(path, "is another kind of attribute");
        if (expected.handle.isNull() || actual.handle.isNull())
            return mismatch(path, "has no data");
        if (shape.isArray) return compareElements(expected, actual, path);
        compareOne(expected, actual, path);
    }

private:
    void compareElements(const DataPlace& expected, const DataPlace& actual, const Path& path) {
        VArrayDataHandle expectedArray(expected.handle);
        VArrayDataHandle actualArray(actual.handle);
        const unsigned expectedCount = expectedArray.elementCount();
        const unsigned actualCount = actualArray.elementCount();
        if (expectedCount != actualCount)
            mismatch(path, "has " + std::to_string(actualCount) + " elements, not " +
                               std::to_string(expectedCount));

        for (unsigned i = std::min(expectedCount, actualCount); i > 0; --i) {
            const Path elementPath{&path, path.name, expectedArray.elementIndex()};
            if (actualArray.elementIndex() != expectedArray.elementIndex())
                mismatch(elementPath,
                         "is at index " + std::to_string(actualArray.elementIndex()) + " instead");
            compareOne({expected.shape, expectedArray.outputValue()},
                       {actual.shape, actualArray.outputValue()}, elementPath);
            expectedArray.next();
            actualArray.next();
        }
    }

    // Compares a single attribute or one element of an array.
    void compareOne(const DataPlace& expected, const DataPlace& actual, const Path& path) {
        const DataShape& shape = expected.shape;
        if (shape.kind == DataShape::Kind::Empty) return;
        if (shape.kind != DataShape::Kind::Compound) {
            ++m_comparison.leavesCompared;
            if (!sameLeaf(shape.kind, expected.handle, actual.handle)) mismatch(path, "differs");
            return;
        }
        for (std::size_t i = 0; i < shape.children.size(); ++i)
            compare(expected.child(i), actual.child(i),
                    {&path, actual.shape.children[i].name, std::nullopt});
    }

    void mismatch(const Path& path, const std::string& what) {
        m_comparison.addMismatch(path.text() + ": " + what);
    }

    Comparison& m_comparison;
};

}  // namespace

void Comparison::addMismatch(const std::string& what) {
    if (++mismatches == 1) firstMismatch = what;
}

void compareData(const DataPlace& expected, const DataPlace& actual, Comparison& comparison) {
    Comparer(comparison).compare(expected, actual, {nullptr, actual.shape.name, std::nullopt});
}

}  // namespace Tolvane::Tools
