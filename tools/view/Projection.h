// Projects the skeletons of a run onto the plane of the picture, in two views that are chosen by
// their shape, whichever way they face and whichever axis points up.
#pragma once

#include "tools/node/Snapshot.h"
#include "tools/rig/Rig.h"
#include "tools/view/BodySides.h"
#include "tools/view/NearJoints.h"

#include <array>
#include <optional>
#include <vector>

namespace Tolvane::Tools {

// In world units, with `across` measured from the middle of the figure. `up` is the height in the
// world; in a view from above, where there is none, it is measured from the middle too.
struct ViewPoint {
    double across;
    double up;
};

// One point for each joint of the snapshot; nothing for one that is too far off to be drawn.
using ViewPoints = std::vector<std::optional<ViewPoint>>;

// The joints of one snapshot. In the view from the front, positive `across` is the body's left; in
// that from the side it is its front. A flat figure, such as one that lies, is seen from above and
// from the side, with its length across in both.
struct Figure {
    std::size_t frame;
    ViewPoints frontOrAbove;
    ViewPoints side;
    // Where the x, y and z axis of the first joint lead to, as seen in both views, at length 1.
    std::array<ViewPoint, 3> axesInFrontOrAbove;
    std::array<ViewPoint, 3> axesInSide;
};

struct Projection {
    std::vector<BodySide> sides;
    bool isSeenFromAbove = false;
    // Whether in each figure all joints are in one place, so that there is no bone to be seen.
    bool isPoint = true;
    std::vector<Figure> figures;
    // The joints that are not drawn in one of the figures at least.
    std::vector<std::size_t> notDrawn;
};

Projection project(const Rig& rig, const std::vector<Snapshot>& snapshots);

// Of length 1 and level. Points are those of one snapshot, which may have fewer than the rig has
// joints.
Vector3 leftOfBody(const Rig& rig, const std::vector<BodySide>& sides, const Points& points,
                   const Vector3& ifUnknown);

// The level direction, of length 1, in which the points of all snapshots spread most.
Vector3 broadestDirection(const std::vector<Points>& snapshots, unsigned upAxis);

}  // namespace Tolvane::Tools
