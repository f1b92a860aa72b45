#include "tests/model/Content.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace ModelTests {

using namespace Model;

GraphValue Content::graphValue(const Shape& shape) {
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
    for (const Shape* member : shape.parts) members.push_back(graphValue(*member));
    return {std::move(members)};
}

Array Content::graphArray(const Shape& element) {
    if (m_choices.oneIn(8)) return nullptr;
    auto elements = std::make_shared<std::vector<GraphValue>>();
    for (unsigned count = length(); count > 0; --count) elements->push_back(graphValue(element));
    return elements;
}

HostNode Content::hostNode(const HostAttribute& attribute) {
    if (!attribute.isArray) return hostElement(attribute);
    HostArray elements;
    for (const unsigned index : logicalIndices()) elements.emplace(index, hostElement(attribute));
    return {std::move(elements)};
}

HostNode Content::hostElement(const HostAttribute& attribute) {
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
    for (const auto& child : attribute.children) children.push_back(hostNode(*child));
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
    const unsigned choice = m_choices.below(64);
    const unsigned wanted = choice < 63 ? kLengths[choice % 15] : 6 + m_choices.below(200);
    const unsigned given = std::min(wanted, m_elementsLeft);
    m_elementsLeft -= given;
    return given;
}

Number Content::number() {
    static const double kSpecial[] = {0.0, -0.0, std::numeric_limits<double>::denorm_min(),
                                      -std::numeric_limits<double>::infinity(),
                                      std::nan("0x4000000000abc")};
    const unsigned leaf = ++m_leaves;
    return numberOf(leaf % 17 == 3 ? kSpecial[leaf / 17 % 5] : leaf + 0.25);
}

std::string Content::text() {
    const unsigned leaf = ++m_leaves;
    if (leaf % 11 == 5) return "";
    std::string text = "text " + std::to_string(leaf);
    if (leaf % 3 == 0) text += " of more than a few characters, \xc3\xa9 and \xff among them";
    return text;
}

Matrix Content::matrix() {
    Matrix matrix;
    for (Number& element : matrix) element = number();
    return matrix;
}

}  // namespace ModelTests
