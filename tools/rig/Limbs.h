// The limbs of a rig: chains of joints between branchings. A limb begins at a root or below a joint
// with several children, and ends at a joint that has several or none. Each joint is in one limb.
#pragma once

#include "tools/rig/Rig.h"

#include <cstddef>
#include <vector>

namespace Tolvane::Tools {

// Joints of one limb, by their place in the rig, from the first to the last.
using Limb = std::vector<std::size_t>;

// In the order in which their first joints stand in the rig.
std::vector<Limb> splitIntoLimbs(const Rig& rig);

}  // namespace Tolvane::Tools
