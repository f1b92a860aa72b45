#include "tests/support/HostData.h"

#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VFnAttribute.h>

#include <algorithm>
#include <numeric>
#include <stdexcept>

namespace TestSupport {
namespace {

template <typename Visitor>
void walk(VDataHandle handle, VPlug plug, Visitor& visitor);

template <typename Visitor>
void walkElements(VDataHandle array, VPlug plug, Visitor& visitor) {
    VArrayDataHandle elements(array);
    for (unsigned i = 0, count = elements.elementCount(); i < count; ++i, elements.next())
        walk(elements.outputValue(), plug.elementByLogicalIndex(elements.elementIndex()), visitor);
}

template <typename Visitor>
void walkLeaf(VDataHandle handle, VPlug plug, Visitor& visitor) {
    switch (VFnAttribute(plug.attribute()).kind()) {
        case VFnAttribute::kNumeric:
            return visitor.visit(handle.asDouble());
        case VFnAttribute::kTyped:
            return visitor.visit(handle.asString());
        case VFnAttribute::kMatrix:
            return visitor.visit(handle.asMatrix());
        case VFnAttribute::kGeneric:
            return;
        default:
            throw std::logic_error("no such leaf is expected here");
    }
}

template <typename Visitor>
void walk(VDataHandle handle, VPlug plug, Visitor& visitor) {
    if (plug.isArray()) {
        visitor.beginArray(handle);
        walkElements(handle, plug, visitor);
    } else if (plug.isCompound()) {
        for (unsigned i = 0; i < plug.numChildren(); ++i)
            walk(handle.child(plug.child(i)), plug.child(i), visitor);
    } else {
        walkLeaf(handle, plug, visitor);
    }
}

struct Numbering {
    Numbers& numbers;

    void beginArray(VDataHandle array) {
        std::vector<unsigned> indices(numbers.length());
        std::iota(indices.begin(), indices.end(), 0u);
        setIndices(array, indices);
    }
    void visit(double& value) { value = numbers.number(); }
    void visit(VString& text) { text = numbers.text().c_str(); }
    void visit(VMatrix& matrix) { numbers.fill(matrix.matrix); }
};

struct Listing {
    Leaves leaves;

    void beginArray(VDataHandle array) { leaves.addLength(VArrayDataHandle(array).elementCount()); }
    void visit(double value) { leaves.addNumber(value); }
    void visit(const VString& text) { leaves.addText(text.asChar()); }
    void visit(const VMatrix& matrix) { leaves.addMatrix(matrix.matrix); }
};

}  // namespace

void number(Numbers& numbers, VDataHandle handle, VPlug plug) {
    Numbering numbering{numbers};
    walk(handle, plug, numbering);
}

void numberElements(Numbers& numbers, VDataHandle array, VPlug plug) {
    Numbering numbering{numbers};
    walkElements(array, plug, numbering);
}

Leaves leavesOf(VDataHandle handle, VPlug plug) {
    Listing listing;
    walk(handle, plug, listing);
    return listing.leaves;
}

void setIndices(VDataHandle array, const std::vector<unsigned>& indices) {
    VArrayDataHandle elements(array);
    VArrayDataBuilder builder = elements.builder();
    for (const unsigned present : indicesOf(array))
        if (std::find(indices.begin(), indices.end(), present) == indices.end())
            builder.removeElement(present);
    for (const unsigned index : indices) builder.addElement(index);
    elements.set(builder);
}

std::vector<unsigned> indicesOf(VDataHandle array) {
    VArrayDataHandle elements(array);
    std::vector<unsigned> indices;
    for (unsigned i = 0, count = elements.elementCount(); i < count; ++i, elements.next())
        indices.push_back(elements.elementIndex());
    return indices;
}

VDataHandle elementOf(VDataHandle array, unsigned logicalIndex) {
    VArrayDataHandle elements(array);
    if (elements.jumpToElement(logicalIndex).error()) throw std::out_of_range("no such element");
    return elements.outputValue();
}

}  // namespace TestSupport
