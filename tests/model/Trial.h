// Carries out a sequence on the product and on the model, and compares them after each step.
#pragma once

#include "tests/model/Choices.h"
#include "tests/model/Difference.h"
#include "tests/model/Sequence.h"

namespace ModelTests {

Difference disagreement(const Sequence& sequence);

// The same for the sequence of these choices, in a process of its own, so that it may also crash or
// hang, which counts as a disagreement.
Difference disagreementApart(const Bytes& choices);

}  // namespace ModelTests
