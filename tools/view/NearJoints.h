// Tells the joints that make up a figure from those that cannot be drawn with it, because they are
// far off: a marker, a light, a root that stays at the origin while the body walks away.
#pragma once

#include "tools/rig/Rig.h"
#include "tools/view/Vector3.h"

#include <optional>
#include <vector>

namespace Tolvane::Tools {

// Nothing for a joint that has no position that could be drawn.
using Points = std::vector<std::optional<Vector3>>;

Points pointsOf(const std::vector<VMatrix>& worlds);

// Zero if there are none.
Vector3 meanOf(const Points& points);

// For each point whether it is near enough to the others.
std::vector<bool> nearJoints(const Points& points);

// For each joint whether it stays with the body in all snapshots. Parts of a rig that move apart,
// by more than its bones could stretch, belong to it if they have joints enough to be a body.
std::vector<bool> jointsThatStay(const Rig& rig, const std::vector<Points>& snapshots);

}  // namespace Tolvane::Tools
