// Flattens skeletons to what is seen of them from the front and from the side of the body, wherever
// it has turned to. World up is y; a body that faces z has its left at positive x.
#pragma once

#include "tools/node/Snapshot.h"
#include "tools/rig/Rig.h"

#include <vector>

namespace Tolvane::Tools {

enum class BodySide { Left, Middle, Right };

// Of each joint, by where it stands in the rest pose.
std::vector<BodySide> bodySides(const Rig& rig);

struct ViewPoint {
    double across;
    double up;
};

// The joints of one snapshot, `across` counted from the middle of the body. From the front the
// body's left is at positive `across`, from the side its front is.
struct Figure {
    std::size_t frame;
    std::vector<ViewPoint> front;
    std::vector<ViewPoint> side;
};

Figure project(const Rig& rig, const Snapshot& snapshot, const std::vector<BodySide>& sides);

}  // namespace Tolvane::Tools
