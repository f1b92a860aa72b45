// Whether an input still holds what was put into it. Comparing it with its output cannot tell: two
// arrays of nothing are equal.
#pragma once

#include "tools/node/DataShape.h"
#include "tools/node/FillInputs.h"
#include "tools/node/Mismatch.h"

#include <optional>

namespace Tolvane::Tools {

// The first array below the port that has another number of elements than `counts`, which filling
// it gave.
std::optional<Mismatch> findUnfilled(const DataPlace& port, const ElementCounts& counts);

}  // namespace Tolvane::Tools
