// The limbs of a rig: the chains of joints between branchings. A limb begins at a root or below a
// joint with several children, and ends at a joint with several or none. Each joint is in exactly
// one limb.
#pragma once

#include "tools/rig/Rig.h"

#include <cstddef>
#include <vector>

namespace Tolvane::Tools {

// The joints of one limb from its first to its last, as indices into Rig::joints.
using Limb = std::vector<std::size_t>;

// In the order in which their first joints stand in the rig.
std::vector<Limb> splitIntoLimbs(const Rig& rig);

}  // namespace Tolvane::Tools
