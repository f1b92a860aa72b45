// Projects skeletons onto the plane of the picture, as seen from the front and from the side of the
// body, whichever way it faces. World up is y; a body that faces z has its left at positive x.
#pragma once

#include "tools/node/Snapshot.h"
#include "tools/rig/Rig.h"

#include <vector>

namespace Tolvane::Tools {

enum class BodySide { Left, Middle, Right };

// The side of each joint, judged by its position in the rest pose.
std::vector<BodySide> bodySides(const Rig& rig);

struct ViewPoint {
    double across;
    double up;
};

// The joints of one snapshot, in world units, with `across` measured from the middle of the body.
// Positive `across` is the body's left in the view from the front, its front in that from the side.
struct Figure {
    std::size_t frame;
    std::vector<ViewPoint> front;
    std::vector<ViewPoint> side;
};

Figure project(const Rig& rig, const Snapshot& snapshot, const std::vector<BodySide>& sides);

}  // namespace Tolvane::Tools
