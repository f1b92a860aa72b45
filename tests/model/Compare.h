// Finds where the product's side of a sequence differs from the model's.
#pragma once

#include "tests/model/Difference.h"
#include "tests/model/ModelWorld.h"
#include "tests/model/ProductWorld.h"
#include "tests/model/Sequence.h"

namespace ModelTests {

// In what a step gave: its result, its messages, the calls that it made of the host.
Difference compareOutcomes(const Outcome& product, const Outcome& model);

// In the host's data (every leaf, every logical index) and in which attributes are clean.
Difference compareHosts(const ProductWorld& product, const ModelWorld& model);

// In what the holders hold: the type, every leaf, which arrays are null, which arrays and objects
// are one and the same, and how many use them.
Difference compareHolders(const ProductWorld& product, const ModelWorld& model);

}  // namespace ModelTests
