// Which joint of a rig a value in a node's inputs or outputs was taken from.
#pragma once

#include "tools/node/DataShape.h"
#include "tools/node/FillPlan.h"
#include "tools/node/FrameData.h"
#include "tools/node/Mismatch.h"

namespace Tolvane::Tools {

// `plan` and `shape` are those of the port that the mismatch is in, `data` is what was filled in.
// Null if the value was not taken from a joint, or is not of one alone.
const PosedJoint* filledJoint(const FillPlan& plan, const DataShape& shape, const FrameData& data,
                              const Mismatch& mismatch);

}  // namespace Tolvane::Tools
