#include "tests/model/HostData.h"

#include <utility>

namespace Model {
namespace {

std::unique_ptr<HostAttribute> makeAttribute(const Shape& shape, HostAttribute* parent,
                                             unsigned position) {
    auto attribute = std::make_unique<HostAttribute>();
    attribute->isArray = shape.kind == Kind::Array;
    attribute->shape = attribute->isArray ? shape.parts[0] : &shape;
    attribute->parent = parent;
    attribute->position = position;
    if (attribute->shape->kind != Kind::Record) return attribute;
    for (const Shape* member : attribute->shape->parts) {
        const auto count = static_cast<unsigned>(attribute->children.size());
        attribute->children.push_back(makeAttribute(*member, attribute.get(), count));
    }
    return attribute;
}

}  // namespace

Port makePort(const std::string& type, bool isInput) {
    Port port{makeAttribute(shapeOf(type), nullptr, 0), isInput, {}};
    port.data = newNode(*port.attribute);
    return port;
}

template <>
Matrix hostDefault() {
    Matrix identity{};
    for (std::size_t i = 0; i < 4; ++i) identity[5 * i] = numberOf(1.0);
    return identity;
}

HostNode newElement(const HostAttribute& attribute) {
    switch (attribute.shape->kind) {
        case Kind::Number:
            return {hostDefault<Number>()};
        case Kind::Text:
            return {hostDefault<std::string>()};
        case Kind::Matrix:
            return {hostDefault<Matrix>()};
        case Kind::Object:
        case Kind::Array:
            return {};
        case Kind::Record:
            break;
    }
    Compound children;
    for (const auto& child : attribute.children) children.push_back(newNode(*child));
    return {std::move(children)};
}

HostNode newNode(const HostAttribute& attribute) {
    return attribute.isArray ? HostNode{HostArray()} : newElement(attribute);
}

}  // namespace Model
