// Puts data into host attributes as their plan says, by the host's own operations, as any tool of
// the host would.
#pragma once

#include "tools/node/DataShape.h"
#include "tools/node/FillPlan.h"
#include "tools/node/FrameData.h"

#include <cstddef>
#include <cstdint>

namespace Tolvane::Tools {

// Fills the attribute of a port from the whole rig; an array of compounds with an element for each
// limb, at logical indices from 0 on. Generated values are other ones for another seed.
void fillInput(const FillPlan& plan, const DataPlace& port, const FrameData& data,
               std::uint64_t seed);

// Some of the joints in some order; none only if there are none. Among n joints, the choices below
// 4 * (n / 2) all differ.
JointList chooseJoints(const JointList& joints, std::size_t choice);

// What an element of an array of records is filled with that stands for the joint at `index`: this
// joint and up to two that follow it.
JointGroup elementGroup(const JointList& joints, std::size_t index);

}  // namespace Tolvane::Tools
