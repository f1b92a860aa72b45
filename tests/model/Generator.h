// Makes sequences of choices.
#pragma once

#include "tests/model/Choices.h"
#include "tests/model/Sequence.h"

#include <string_view>
#include <vector>

namespace ModelTests {

// Each step is a part of the choices.
Sequence makeSequence(Choices& choices);

// The operations of the host that a sequence may make fail: all that a translation calls.
const std::vector<std::string_view>& failingOperations();

}  // namespace ModelTests
