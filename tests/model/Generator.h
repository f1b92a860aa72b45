// Makes sequences of choices.
#pragma once

#include "tests/model/Choices.h"
#include "tests/model/Sequence.h"

#include <string_view>
#include <vector>

namespace ModelTests {

// Each step is a part of the choices.
Sequence makeSequence(Choices& choices);

// The first choice of each sequence: a length around the sizes of narrow counters for one of its
// arrays, or mostly 0 for none such.
unsigned longLength(Choices& choices);

// The operations of the host that a sequence may make fail: those that only writing calls, those
// of both directions, those that only reading calls.
const std::vector<std::string_view>& failingOperations();

}  // namespace ModelTests
