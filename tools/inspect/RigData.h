// Puts the data of a rig into ports, as a run does.
#pragma once

#include "tools/node/DataShape.h"
#include "tools/rig/Rig.h"

#include <cstddef>

namespace Tolvane::Tools {

// Of one frame. `rig` has that many.
void fillFromRig(const DataPlace& port, const Rig& rig, std::size_t frame);

}  // namespace Tolvane::Tools
