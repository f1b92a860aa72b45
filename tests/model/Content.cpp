#include "tests/model/Content.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace ModelTests {

using namespace Model;

namespace {

constexpr unsigned kMostElements = 40;
constexpr unsigned kMostRecords = 1000;

bool mayBeLong(const Shape& element, unsigned length) {
    return length <= kMostRecords || element.kind != Kind::Record;
}

}  // namespace

unsigned longArrays(const Shape& shape, unsigned length) {
    if (shape.kind == Kind::Array) return mayBeLong(*shape.parts[0], length) ? 1 : 0;
    unsigned count = 0;
    for (const Shape* member : shape.parts) count += longArrays(*member, length);
    return count;
}

GraphValue Content::graphValue(const Shape& shape) {
    begin();
    return valueOf(shape);
}

GraphValue Content::longGraphValue(const Shape& shape, unsigned length) {
    begin();
    m_arraysBeforeLong = m_choices.below(longArrays(shape, length));
    m_longLength = length;
    m_elementsLeft = 0;
    return valueOf(shape);
}

HostNode Content::hostNode(const HostAttribute& attribute) {
    begin();
    return nodeOf(attribute);
}

void Content::begin() {
    m_leaves += m_choices.below(64);
    m_elementsLeft = kMostElements;
    m_isShallow = m_choices.oneIn(2);
}

GraphValue Content::valueOf(const Shape& shape) {
    switch (shape.kind) {
        case Kind::Number:
            return {number()};
        case Kind::Text:
            return {text()};
        case Kind::Matrix:
            return {matrix()};
        case Kind::Object:
            return {m_choices.oneIn(2) ? std::make_shared<ObjectStandIn>() : defaultObject()};
        case Kind::Array:
            return {graphArray(*shape.parts[0])};
        case Kind::Record:
            break;
    }
    Record members;
    for (const Shape* member : shape.parts) members.push_back(valueOf(*member));
    return {std::move(members)};
}

Array Content::graphArray(const Shape& element) {
    const bool isCandidate = m_depth == 0 && m_longLength > 0 && mayBeLong(element, m_longLength);
    const bool isLong = isCandidate && m_arraysBeforeLong-- == 0;
    if (!isLong && m_choices.oneIn(8)) return nullptr;
    auto elements = std::make_shared<std::vector<GraphValue>>();
    const unsigned count = isLong ? std::exchange(m_longLength, 0) : length();
    ++m_depth;
    while (elements->size() < count) elements->push_back(valueOf(element));
    --m_depth;
    return elements;
}

HostNode Content::nodeOf(const HostAttribute& attribute) {
    if (!attribute.isArray) return elementOf(attribute);
    HostArray elements;
    const std::set<unsigned> indices = logicalIndices();
    ++m_depth;
    for (const unsigned index : indices) elements.emplace(index, elementOf(attribute));
    --m_depth;
    return {std::move(elements)};
}

HostNode Content::elementOf(const HostAttribute& attribute) {
    switch (attribute.shape->kind) {
        case Kind::Number:
            return {number()};
        case Kind::Text:
            return {text()};
        case Kind::Matrix:
            return {matrix()};
        case Kind::Object:
        case Kind::Array:
            return {};
        case Kind::Record:
            break;
    }
    Compound children;
    for (const auto& child : attribute.children) children.push_back(nodeOf(*child));
    return {std::move(children)};
}

std::set<unsigned> Content::logicalIndices() {
    std::set<unsigned> indices;
    const unsigned count = length();
    const unsigned spread = m_choices.below(6);
    unsigned next = 0;
    for (unsigned i = 0; i < count; ++i) {
        // Dense, with small gaps, with gaps of any size, or dense up to the greatest index.
        if (spread == 3) next += m_choices.below(4);
        if (spread == 4) next += m_choices.below(256) << m_choices.below(24);
        indices.insert(spread == 5 ? std::numeric_limits<unsigned>::max() - i : next);
        ++next;
    }
    return indices;
}

unsigned Content::length() {
    static constexpr unsigned kLengths[] = {0, 1, 2, 3, 2, 1, 0, 2, 3, 4, 1, 2, 5, 3, 1};
    if (m_isShallow && m_depth > 0) return 0;
    const unsigned choice = m_choices.below(64);
    const unsigned wanted = choice < 60 ? kLengths[choice % 15] : 15 + m_choices.below(3);
    const unsigned given = std::min(wanted, m_elementsLeft);
    m_elementsLeft -= given;
    return given;
}

// By their bits, because a NaN may lose its own on the way through a double.
Number Content::number() {
    static constexpr Number kSpecial[] = {
        0x0000000000000000, 0x8000000000000000,  // zeros
        0x7ff0000000000000, 0xfff0000000000000,  // infinities
        0x0000000000000001, 0x800fffffffffffff,  // denormals
        0x7ff8000000000abc, 0xfff8000000000001,  // quiet NaNs
        0x7ff0000000000001,                      // a signalling NaN
        0x7fefffffffffffff, 0x0010000000000000,  // the greatest number, the least normal one
        0x3ff0000000000001, 0x433fffffffffffff,  // just above 1, the greatest that is odd
    };
    const unsigned leaf = ++m_leaves;
    if (leaf % 8 == 3) return kSpecial[leaf / 8 % std::size(kSpecial)];
    return numberOf(leaf + 0.1);  // which no float holds
}

// Around the sizes of buffers and counters that texts might be squeezed into, with any bytes.
std::string Content::text() {
    static constexpr unsigned kLengths[] = {0,   15,  16,  17,  1,   63,  64, 65,
                                            126, 127, 128, 255, 256, 257, 300};
    const unsigned leaf = ++m_leaves;
    const std::string text = "text " + std::to_string(leaf);
    if (leaf % 4 == 1) return " \t" + text + "\n ";
    if (leaf % 4 != 3) return text;
    std::string bytes(kLengths[leaf / 4 % std::size(kLengths)], ' ');
    for (unsigned i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(1 + (leaf + i) % 255);
    return bytes;
}

Matrix Content::matrix() {
    Matrix matrix;
    for (Number& element : matrix) element = number();
    return matrix;
}

}  // namespace ModelTests
