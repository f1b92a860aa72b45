// From where a recording is best looked at.
#pragma once

#include "tools/node/Recording.h"
#include "tools/rig/Rig.h"
#include "tools/view/BodySides.h"
#include "tools/view/Vector3.h"

#include <vector>

namespace Tolvane::Tools {

// In world units, relative to the recording's origin.
struct Framing {
    std::vector<BodySide> sides;
    Vector3 up;
    // To the left of the body in the first frame; level, of length 1.
    Vector3 left;
    // How far the figure reaches from its middle at most; above 0.
    double size = 1;
    // How high the lowest point is that it touches.
    double ground = 0;
    // The middle of the figure in each frame.
    std::vector<Vector3> middles;
};

Framing framingOf(const Rig& rig, const Recording& recording);

}  // namespace Tolvane::Tools
