// Puts data into host attributes as their plan says, by the host's own operations, as any tool of
// the host would.
#pragma once

#include "tools/node/DataShape.h"
#include "tools/node/FillPlan.h"
#include "tools/node/FrameData.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Tolvane::Tools {

// How many elements each array got; an array in an array counts once for each element. An array
// comes before those in it.
using ElementCounts = std::vector<std::size_t>;

// Fills the attribute of a port from the whole rig; an array of compounds with an element for each
// limb, at logical indices from 0 on. Generated values are other ones for another seed. The counts
// are those that the arrays should have, even if the host refuses them.
ElementCounts fillInput(const FillPlan& plan, const DataPlace& port, const FrameData& data,
                        std::uint64_t seed);

// Some of the joints in some order; none only if there are none. Among n joints, the choices below
// 4 * (n / 2) all differ.
JointList chooseJoints(const JointList& joints, std::size_t choice);

// What an element of an array of records is filled with that stands for the joint at `index`: this
// joint and up to two that follow it.
JointGroup elementGroup(const JointList& joints, std::size_t index);

}  // namespace Tolvane::Tools
