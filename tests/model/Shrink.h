// Makes the choices of a failing sequence fewer and smaller for as long as it fails.
#pragma once

#include "tests/model/Choices.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace ModelTests {

struct Shrinkable {
    std::function<bool(const Bytes& choices)> fails;
    // Where the parts begin that may be left out, in order, and where the last one ends.
    std::function<std::vector<std::size_t>(const Bytes& choices)> parts;
};

// The same choices where these do not fail.
Bytes shrink(Bytes choices, const Shrinkable& shrinkable);

}  // namespace ModelTests
