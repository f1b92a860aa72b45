#include "tools/report/Projection.h"

#include <algorithm>
#include <cmath>

namespace Tolvane::Tools {
namespace {

enum Axis : unsigned { kX, kY, kZ };

struct Ground {
    double x = 0;
    double z = 0;
};

double position(const VMatrix& world, Axis axis) { return world[3][axis]; }

struct Extent {
    double least;
    double most;

    double size() const { return most - least; }
    double middle() const { return (least + most) / 2; }
};

Extent restExtent(const Rig& rig, Axis axis) {
    const auto [least, most] = std::minmax_element(
        rig.joints.begin(), rig.joints.end(), [axis](const Joint& a, const Joint& b) {
            return position(a.restWorld, axis) < position(b.restWorld, axis);
        });
    return {position(least->restWorld, axis), position(most->restWorld, axis)};
}

template <typename Counts>
Ground mean(const Snapshot& snapshot, Counts counts) {
    Ground sum;
    double count = 0;
    for (std::size_t i = 0; i < snapshot.worlds.size(); ++i) {
        if (!counts(i)) continue;
        sum.x += position(snapshot.worlds[i], kX);
        sum.z += position(snapshot.worlds[i], kZ);
        ++count;
    }
    return count > 0 ? Ground{sum.x / count, sum.z / count} : sum;
}

// The direction to the body's left, of length 1. It is taken from where the limbs of each side
// begin, the hips and shoulders, because hands and feet swing.
Ground leftward(const Rig& rig, const Snapshot& snapshot, const std::vector<BodySide>& sides) {
    const auto limbsBegin = [&](BodySide side) {
        return mean(snapshot, [&, side](std::size_t i) {
            const auto parent = rig.joints[i].parent;
            return sides[i] == side && (!parent || sides[*parent] != side);
        });
    };
    const Ground left = limbsBegin(BodySide::Left);
    const Ground right = limbsBegin(BodySide::Right);
    const Ground apart{left.x - right.x, left.z - right.z};
    const double length = std::hypot(apart.x, apart.z);
    if (!(length > 0)) return {1, 0};
    return {apart.x / length, apart.z / length};
}

}  // namespace

std::vector<BodySide> bodySides(const Rig& rig) {
    const Extent across = restExtent(rig, kX);
    const double size =
        std::max({across.size(), restExtent(rig, kY).size(), restExtent(rig, kZ).size()});
    const double tolerance = 0.015 * size;
    std::vector<BodySide> sides;
    for (const Joint& joint : rig.joints) {
        const double x = position(joint.restWorld, kX) - across.middle();
        sides.push_back(x > tolerance    ? BodySide::Left
                        : x < -tolerance ? BodySide::Right
                                         : BodySide::Middle);
    }
    return sides;
}

Figure project(const Rig& rig, const Snapshot& snapshot, const std::vector<BodySide>& sides) {
    const Ground left = leftward(rig, snapshot, sides);
    const Ground ahead{-left.z, left.x};
    const Ground middle = mean(snapshot, [](std::size_t) { return true; });

    Figure figure{snapshot.frame, {}, {}};
    for (const VMatrix& world : snapshot.worlds) {
        const double x = position(world, kX) - middle.x;
        const double z = position(world, kZ) - middle.z;
        const double up = position(world, kY);
        figure.front.push_back({x * left.x + z * left.z, up});
        figure.side.push_back({x * ahead.x + z * ahead.z, up});
    }
    return figure;
}

}  // namespace Tolvane::Tools
