#include "tools/view/Projection.h"

#include "tools/view/Symmetry.h"

#include <algorithm>
#include <limits>

namespace Tolvane::Tools {
namespace {

// A figure that is less high than this part of its length is flat.
constexpr double kFlat = 0.6;
// The sides of a body are told apart near the spine, for hands and feet swing: each joint further
// out along a limb counts this much less.
constexpr double kWeightOfNext = 0.25;
// Of the way from the right to the left, the part that must be level if it is to tell the left.
constexpr double kLevel = 0.3;
// Shorter ones have no direction that could be drawn.
constexpr double kSmallestAxis = 1e-100;

Vector3 level(Vector3 direction, unsigned upAxis) {
    direction[upAxis] = 0;
    return direction;
}

class Extent {
public:
    void include(double value) {
        m_least = std::min(m_least, value);
        m_most = std::max(m_most, value);
    }
    double size() const { return std::max(m_most - m_least, 0.0); }

private:
    double m_least = std::numeric_limits<double>::infinity();
    double m_most = -m_least;
};

bool coincide(const Points& points) {
    const auto isDrawn = [](const auto& point) { return point.has_value(); };
    const auto first = std::find_if(points.begin(), points.end(), isDrawn);
    return std::all_of(points.begin(), points.end(),
                       [&](const auto& point) { return !point || *point == **first; });
}

// Whether that holds for most of the figures: arms and legs stick out now and then.
bool areFlat(const std::vector<Points>& snapshots, const Vector3& broadest, unsigned upAxis) {
    std::vector<double> flatness;
    for (const Points& points : snapshots) {
        Extent up, across;
        for (const auto& point : points) {
            if (!point) continue;
            up.include((*point)[upAxis]);
            across.include(dot(*point, broadest));
        }
        if (across.size() > 0) flatness.push_back(up.size() / across.size());
    }
    if (2 * flatness.size() < snapshots.size() + 1) return false;
    const auto median = flatness.begin() + static_cast<std::ptrdiff_t>(flatness.size() / 2);
    std::nth_element(flatness.begin(), median, flatness.end());
    return *median < kFlat;
}

// The left of the body is then at the back of what is seen from the side, as sides are drawn.
Vector3 withLeftAtTheBack(const Vector3& across, const Rig& rig, const std::vector<BodySide>& sides,
                          const std::vector<Points>& snapshots) {
    Vector3 left{};
    for (const Points& points : snapshots) left = left + leftOfBody(rig, sides, points, {});
    const Vector3 towardsViewer = cross(across, unitVector(rig.upAxis));
    return dot(left, towardsViewer) > 0 ? -1.0 * across : across;
}

struct ViewAxes {
    Vector3 across;
    Vector3 up;

    ViewPoint of(const Vector3& direction) const {
        return {dot(direction, across), dot(direction, up)};
    }
};

// Takes the points of joints that are far off, and returns which joints these are.
std::vector<std::size_t> removeFarJoints(const Rig& rig, std::vector<Points>& snapshots) {
    const std::vector<bool> stays = jointsThatStay(rig, snapshots);
    std::vector<bool> isDrawn = stays;
    for (Points& points : snapshots) {
        for (std::size_t i = 0; i < points.size(); ++i)
            if (!stays[i]) points[i].reset();
        const std::vector<bool> isNear = nearJoints(points);
        for (std::size_t i = 0; i < points.size(); ++i) {
            if (isNear[i]) continue;
            points[i].reset();
            isDrawn[i] = false;
        }
    }
    std::vector<std::size_t> removed;
    for (std::size_t i = 0; i < isDrawn.size(); ++i)
        if (!isDrawn[i]) removed.push_back(i);
    return removed;
}

Figure figureOf(const Snapshot& snapshot, const Points& points, const ViewAxes& frontOrAbove,
                const ViewAxes& side, unsigned upAxis) {
    Figure figure{snapshot.frame, {}, {}, {}, {}};
    const Vector3 middle = level(meanOf(points), upAxis);
    for (const auto& point : points) {
        const auto in = [&](const ViewAxes& view) {
            return point ? std::optional(view.of(*point - middle)) : std::nullopt;
        };
        figure.frontOrAbove.push_back(in(frontOrAbove));
        figure.side.push_back(in(side));
    }
    if (snapshot.worlds.empty()) return figure;
    for (unsigned axis = 0; axis < 3; ++axis) {
        const double* row = snapshot.worlds.front()[axis];
        const Vector3 direction{row[0], row[1], row[2]};
        const double size = length(direction);
        const Vector3 unit =
            size > kSmallestAxis && std::isfinite(size) ? 1 / size * direction : Vector3{};
        figure.axesInFrontOrAbove[axis] = frontOrAbove.of(unit);
        figure.axesInSide[axis] = side.of(unit);
    }
    return figure;
}

}  // namespace

Projection project(const Rig& rig, const std::vector<Snapshot>& snapshots) {
    Projection projection;
    projection.sides = bodySides(rig);
    std::vector<Points> drawn;
    for (const Snapshot& snapshot : snapshots) {
        drawn.push_back(pointsOf(snapshot.worlds));
        // A library that is wrong may give back more joints than it got.
        drawn.back().resize(std::min(drawn.back().size(), rig.joints.size()));
    }
    projection.notDrawn = removeFarJoints(rig, drawn);
    for (const Points& points : drawn) projection.isPoint = projection.isPoint && coincide(points);

    const Vector3 up = unitVector(rig.upAxis);
    const Vector3 broadest =
        withLeftAtTheBack(broadestDirection(drawn, rig.upAxis), rig, projection.sides, drawn);
    projection.isSeenFromAbove = areFlat(drawn, broadest, rig.upAxis);
    for (std::size_t i = 0; i < snapshots.size(); ++i) {
        ViewAxes first, side;
        if (projection.isSeenFromAbove) {
            first = {broadest, cross(up, broadest)};
            side = {broadest, up};
        } else {
            first = {leftOfBody(rig, projection.sides, drawn[i], broadest), up};
            side = {cross(first.across, up), up};
        }
        projection.figures.push_back(figureOf(snapshots[i], drawn[i], first, side, rig.upAxis));
    }
    return projection;
}

Vector3 leftOfBody(const Rig& rig, const std::vector<BodySide>& sides, const Points& points,
                   const Vector3& ifUnknown) {
    // The sums of the joints of each side, by how far out along their limb they are.
    struct Sum {
        Vector3 point{};
        double count = 0;
    };
    std::vector<Sum> left, right;
    std::vector<std::size_t> stepsOut(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto parent = rig.joints[i].parent;
        if (parent && sides[*parent] == sides[i]) stepsOut[i] = stepsOut[*parent] + 1;
        if (!points[i] || sides[i] == BodySide::Middle) continue;
        auto& sums = sides[i] == BodySide::Left ? left : right;
        if (sums.size() <= stepsOut[i]) sums.resize(stepsOut[i] + 1);
        sums[stepsOut[i]].point = sums[stepsOut[i]].point + *points[i];
        ++sums[stepsOut[i]].count;
    }
    Vector3 apart{};
    double weight = 1;
    for (std::size_t i = 0; i < std::min(left.size(), right.size()); ++i) {
        if (left[i].count > 0 && right[i].count > 0)
            apart = apart + weight * (1 / left[i].count * left[i].point -
                                      1 / right[i].count * right[i].point);
        weight *= kWeightOfNext;
    }
    const Vector3 flat = level(apart, rig.upAxis);
    const double size = length(flat);
    if (!(size > 0) || size < kLevel * length(apart)) return ifUnknown;
    return 1 / size * flat;
}

Vector3 broadestDirection(const std::vector<Points>& snapshots, unsigned upAxis) {
    const Vector3 first = customaryLeft(upAxis);
    const Vector3 second = cross(first, unitVector(upAxis));
    double sumFirst = 0, sumSecond = 0, sumBoth = 0;
    for (const Points& points : snapshots) {
        const Vector3 middle = meanOf(points);
        for (const auto& point : points) {
            if (!point) continue;
            const double a = dot(*point - middle, first);
            const double b = dot(*point - middle, second);
            sumFirst += a * a;
            sumSecond += b * b;
            sumBoth += a * b;
        }
    }
    // The direction of the greater eigenvector of the covariance.
    const double angle = std::atan2(2 * sumBoth, sumFirst - sumSecond) / 2;
    if (!std::isfinite(angle)) return first;
    return std::cos(angle) * first + std::sin(angle) * second;
}

}  // namespace Tolvane::Tools
