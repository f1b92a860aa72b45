// Which side of the body each joint of a rig is on.
#pragma once

#include "tools/rig/Rig.h"
#include "tools/view/SideOfName.h"

#include <vector>

namespace Tolvane::Tools {

// By the joints' names, if these speak of sides; a joint whose name does not is on the side of its
// parent. Otherwise by the symmetry of the rest pose. All are in the middle if neither tells.
std::vector<BodySide> bodySides(const Rig& rig);

}  // namespace Tolvane::Tools
