// The first thing in which product and model differ, with the way to it.
#pragma once

#include <optional>
#include <string>

namespace ModelTests {

using Difference = std::optional<std::string>;

// The same difference, one step further from it.
inline Difference at(const std::string& place, Difference difference) {
    if (difference) difference->insert(0, place);
    return difference;
}

inline Difference differ(const std::string& product, const std::string& model) {
    return ": the product has " + product + ", the model " + model;
}

}  // namespace ModelTests
