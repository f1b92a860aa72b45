#include "tools/view/BodySides.h"

#include "tools/view/Symmetry.h"

#include <algorithm>

namespace Tolvane::Tools {
namespace {

// Empty if the names speak of no side. Letters count only where there are both.
std::vector<BodySide> sidesByName(const Rig& rig) {
    std::vector<BodySide> sides;
    bool anyWord = false, anyLeft = false, anyRight = false;
    for (const Joint& joint : rig.joints) {
        const NamedSide named = sideOfName(joint.name);
        anyWord = anyWord || named.isWord;
        anyLeft = anyLeft || named.side == BodySide::Left;
        anyRight = anyRight || named.side == BodySide::Right;
        const bool inherits = named.side == BodySide::Middle && joint.parent;
        sides.push_back(inherits ? sides[*joint.parent] : named.side);
    }
    if (!anyWord && !(anyLeft && anyRight)) sides.clear();
    return sides;
}

std::vector<BodySide> sidesByShape(const Rig& rig) {
    std::vector<BodySide> sides(rig.joints.size(), BodySide::Middle);
    const auto mirror = findMirror(rig);
    if (!mirror) return sides;
    for (std::size_t i = 0; i < sides.size(); ++i) {
        const double offset =
            dot(mirror->left, positionOf(rig.joints[i].restWorld)) - mirror->offset;
        if (offset > mirror->tolerance) sides[i] = BodySide::Left;
        if (offset < -mirror->tolerance) sides[i] = BodySide::Right;
    }
    return sides;
}

}  // namespace

std::vector<BodySide> bodySides(const Rig& rig) {
    std::vector<BodySide> sides = sidesByName(rig);
    return sides.empty() ? sidesByShape(rig) : sides;
}

}  // namespace Tolvane::Tools
