// Whether an input still holds what was put into it. Comparing it with its output cannot tell: what
// a library blanks as it reads comes back blank.
#pragma once

#include "tools/node/DataShape.h"
#include "tools/node/FillPlan.h"
#include "tools/node/FrameData.h"
#include "tools/node/Mismatch.h"

#include <cstdint>
#include <optional>

namespace Tolvane::Tools {

// The first array or value below the port that is not, bit for bit, what `fillInput` made it with
// the same arguments.
std::optional<Mismatch> findUnfilled(const FillPlan& plan, const DataPlace& port,
                                     const FrameData& data, std::uint64_t seed);

}  // namespace Tolvane::Tools
