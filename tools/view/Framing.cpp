#include "tools/view/Framing.h"

#include "tools/view/NearJoints.h"
#include "tools/view/Projection.h"
#include "tools/view/Symmetry.h"

#include <algorithm>
#include <limits>

namespace Tolvane::Tools {
namespace {

constexpr std::size_t kSamples = 8;
// A figure that climbs more than this many of its sizes is followed up, too.
constexpr double kMostClimb = 4;

Points pointsAt(const Positions& positions) {
    Points points(positions.size() / 3);
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Vector3 point{positions[3 * i], positions[3 * i + 1], positions[3 * i + 2]};
        if (std::isfinite(point[0] + point[1] + point[2])) points[i] = point;
    }
    return points;
}

std::vector<Points> samplesOf(const Recording& recording) {
    std::vector<Points> samples;
    const std::size_t count = recording.frames.size();
    const std::size_t step = (count + kSamples - 1) / kSamples;
    for (std::size_t i = 0; i < count; i += step)
        samples.push_back(pointsAt(recording.frames[i].wentIn));
    return samples;
}

// The points of the figure alone.
Points figurePoints(const Positions& positions, const std::vector<bool>& stays) {
    Points points = pointsAt(positions);
    for (std::size_t i = 0; i < points.size(); ++i)
        if (!stays[i]) points[i].reset();
    const std::vector<bool> isNear = nearJoints(points);
    for (std::size_t i = 0; i < points.size(); ++i)
        if (!isNear[i]) points[i].reset();
    return points;
}

}  // namespace

Framing framingOf(const Rig& rig, const Recording& recording) {
    Framing framing;
    framing.sides = bodySides(rig);
    framing.up = unitVector(rig.upAxis);
    const std::vector<bool> stays = jointsThatStay(rig, samplesOf(recording));

    double reach = 0;
    double lowest = std::numeric_limits<double>::infinity(), highest = -lowest;
    std::vector<Points> first;
    for (const RecordedFrame& frame : recording.frames) {
        const Points points = figurePoints(frame.wentIn, stays);
        if (first.empty()) first.push_back(points);
        const Vector3 middle = meanOf(points);
        for (const auto& point : points) {
            if (!point) continue;
            reach = std::max(reach, length(*point - middle));
            lowest = std::min(lowest, (*point)[rig.upAxis]);
            highest = std::max(highest, (*point)[rig.upAxis]);
        }
        framing.middles.push_back(middle);
    }
    if (reach > 0) framing.size = reach;
    const bool isAnywhere = lowest <= highest;
    if (isAnywhere) framing.ground = lowest;
    // Otherwise a jump would look as if the ground fell.
    if (isAnywhere && highest - lowest <= kMostClimb * framing.size)
        for (Vector3& middle : framing.middles) middle[rig.upAxis] = (lowest + highest) / 2;
    framing.left = customaryLeft(rig.upAxis);
    if (!first.empty())
        framing.left =
            leftOfBody(rig, framing.sides, first.front(), broadestDirection(first, rig.upAxis));
    return framing;
}

}  // namespace Tolvane::Tools
