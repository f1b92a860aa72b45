// The symmetry of a rig's rest pose, which tells its sides where the joints' names do not.
#pragma once

#include "tools/rig/Rig.h"
#include "tools/view/Vector3.h"

#include <optional>

namespace Tolvane::Tools {

// An upright plane that halves a rig. Points p with dot(left, p) > offset are on the left.
struct Mirror {
    Vector3 left;
    double offset;
    // What is nearer than this to the plane is in the middle.
    double tolerance;
};

// Nothing if the rig is not symmetric. Which half is the left one is told by the feet, which point
// ahead; without feet, the left is where it is by custom.
std::optional<Mirror> findMirror(const Rig& rig);

// The direction to the left of a body that stands as is the custom where this axis points up: at
// positive x or, if that is up, at positive y.
Vector3 customaryLeft(unsigned upAxis);

}  // namespace Tolvane::Tools
