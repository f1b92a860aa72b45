#include "tests/model/GraphValue.h"

#include <cstring>
#include <utility>

namespace Model {

Number numberOf(double value) noexcept {
    Number number;
    std::memcpy(&number, &value, sizeof number);
    return number;
}

double valueOf(Number number) noexcept {
    double value;
    std::memcpy(&value, &number, sizeof value);
    return value;
}

GraphValue defaultValue(const Shape& shape) {
    switch (shape.kind) {
        case Kind::Number:
            return {numberOf(0.0)};
        case Kind::Text:
            return {std::string()};
        case Kind::Matrix:
            return {Matrix{}};
        case Kind::Object:
            return {defaultObject()};
        case Kind::Array:
            return {std::make_shared<std::vector<GraphValue>>()};
        case Kind::Record:
            break;
    }
    Record members;
    for (const Shape* member : shape.parts) members.push_back(defaultValue(*member));
    return {std::move(members)};
}

const Object& defaultObject() {
    static const Object object = std::make_shared<ObjectStandIn>();
    return object;
}

GraphValue unsharedCopy(const GraphValue& value) {
    GraphValue copy = value;
    if (auto* members = std::get_if<Record>(&copy.content))
        for (GraphValue& member : *members) member = unsharedCopy(member);
    if (auto* array = std::get_if<Array>(&copy.content); array && *array) {
        *array = std::make_shared<std::vector<GraphValue>>(**array);
        for (GraphValue& element : **array) element = unsharedCopy(element);
    }
    if (auto* object = std::get_if<Object>(&copy.content); object && *object != defaultObject())
        *object = std::make_shared<ObjectStandIn>();
    return copy;
}

}  // namespace Model
