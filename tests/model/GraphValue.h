// What the graph holds, in plain containers. Copies share arrays and objects, as the graph's do, so
// that the use counts are alike on both sides.
#pragma once

#include "tests/model/Shape.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Model {

// A double by its bits, so that equal means equal to the bit.
using Number = std::uint64_t;
using Matrix = std::array<Number, 16>;

Number numberOf(double value) noexcept;
double valueOf(Number number) noexcept;

// Stands for one of the framework's objects by its address.
struct ObjectStandIn {};
using Object = std::shared_ptr<ObjectStandIn>;

struct GraphValue;
using Record = std::vector<GraphValue>;
// Null where there is no array, which is not the same as an empty one.
using Array = std::shared_ptr<std::vector<GraphValue>>;

struct GraphValue {
    std::variant<Number, std::string, Matrix, Object, Record, Array> content;
};

// What a new value of the type is: zeros, empty texts, empty arrays of its own, the default object.
GraphValue defaultValue(const Shape& shape);
const Object& defaultObject();

// An equal value that shares nothing with this one but the default object.
GraphValue unsharedCopy(const GraphValue& value);

struct HeldValue {
    std::string type;
    GraphValue value;
};
using Holder = std::optional<HeldValue>;

}  // namespace Model
