#include "tools/view/Symmetry.h"

#include "tools/view/NearJoints.h"

#include <algorithm>
#include <limits>

namespace Tolvane::Tools {
namespace {

constexpr double kPi = 3.14159265358979323846;
// Planes are tried at every degree, by mirroring some hundred joints and looking for their
// partners.
constexpr int kDirections = 180;
constexpr std::size_t kMostTried = 100;
// As a part of the rig's size: how far off the mirrored joints may be on average, and what is too
// near to the plane to be of a side.
constexpr double kMostError = 0.03;
constexpr double kTolerance = 0.015;
// A body that is a little asymmetric about a plane with much on either side of it, as an animal is
// whose forelegs resemble its hind legs, is not symmetric about that plane.
constexpr double kErrorWeight = 10;

struct RestJoint {
    std::size_t index;
    Vector3 point;
    std::size_t depth;
};

std::vector<RestJoint> restJoints(const Rig& rig) {
    std::vector<VMatrix> worlds;
    std::vector<std::size_t> depths;
    for (const Joint& joint : rig.joints) {
        worlds.push_back(joint.restWorld);
        depths.push_back(joint.parent ? depths[*joint.parent] + 1 : 0);
    }
    const Points points = pointsOf(worlds);
    const std::vector<bool> isNear = nearJoints(points);
    std::vector<RestJoint> joints;
    for (std::size_t i = 0; i < points.size(); ++i)
        if (isNear[i]) joints.push_back({i, *points[i], depths[i]});
    return joints;
}

Vector3 meanOf(const std::vector<RestJoint>& joints) {
    Vector3 sum{};
    for (const RestJoint& joint : joints) sum = sum + joint.point;
    return 1 / static_cast<double>(joints.size()) * sum;
}

double sizeOf(const std::vector<RestJoint>& joints, const Vector3& middle) {
    double reach = 0;
    for (const RestJoint& joint : joints) reach = std::max(reach, length(joint.point - middle));
    return 2 * reach;
}

// A mere row of joints has no left and right.
bool areInARow(const std::vector<RestJoint>& joints, const Vector3& middle, double size) {
    const auto farthest =
        std::max_element(joints.begin(), joints.end(), [&](const RestJoint& a, const RestJoint& b) {
            return length(a.point - middle) < length(b.point - middle);
        });
    const Vector3 along = 2 / size * (farthest->point - middle);
    return std::all_of(joints.begin(), joints.end(), [&](const RestJoint& joint) {
        return length(cross(along, joint.point - middle)) < kTolerance * size;
    });
}

class SymmetrySearch {
public:
    SymmetrySearch(const std::vector<RestJoint>& joints, const Vector3& middle, double size)
        : m_middle(middle), m_size(size) {
        for (const RestJoint& joint : joints) {
            if (m_pointsAtDepth.size() <= joint.depth) m_pointsAtDepth.resize(joint.depth + 1);
            m_pointsAtDepth[joint.depth].push_back(joint.point);
        }
        // Odd, for joints of both sides often take turns.
        const std::size_t step = (joints.size() / kMostTried) | 1U;
        for (std::size_t i = 0; i < joints.size(); i += step) m_tried.push_back(joints[i]);
    }

    // The better the mirror, the higher. Nothing if it is none.
    std::optional<double> quality(const Vector3& normal) const {
        const auto count = static_cast<double>(m_tried.size());
        double error = 0, spread = 0;
        int offPlane = 0;
        for (const RestJoint& joint : m_tried) {
            const double offset = dot(normal, joint.point - m_middle);
            error += distanceToNearest(joint.point - 2 * offset * normal, joint.depth);
            spread += std::abs(offset);
            if (std::abs(offset) > kTolerance * m_size) ++offPlane;
        }
        error /= count * m_size;
        spread /= count * m_size;
        // A joint that finds no partner but itself is off by twice its distance from the plane.
        if (error > spread || error > kMostError || offPlane < 2) return std::nullopt;
        return spread - kErrorWeight * error;
    }

private:
    double distanceToNearest(const Vector3& point, std::size_t depth) const {
        double nearest = std::numeric_limits<double>::infinity();
        for (const Vector3& other : m_pointsAtDepth[depth]) {
            const Vector3 apart = other - point;
            nearest = std::min(nearest, dot(apart, apart));
        }
        return std::sqrt(nearest);
    }

    std::vector<std::vector<Vector3>> m_pointsAtDepth;
    std::vector<RestJoint> m_tried;
    Vector3 m_middle;
    double m_size;
};

// How far the lowest bones lead ahead: above 0 if more of their length points that way than back.
double stepAhead(const Rig& rig, const std::vector<RestJoint>& joints, const Vector3& ahead,
                 double size) {
    double lowest = std::numeric_limits<double>::infinity();
    for (const RestJoint& joint : joints) lowest = std::min(lowest, joint.point[rig.upAxis]);
    double sum = 0;
    for (const RestJoint& joint : joints) {
        const auto parent = rig.joints[joint.index].parent;
        if (!parent || joint.point[rig.upAxis] > lowest + 0.08 * size) continue;
        const double step = dot(ahead, joint.point - positionOf(rig.joints[*parent].restWorld));
        if (std::abs(step) < size) sum += step;
    }
    return std::abs(sum) > 0.01 * size ? sum : 0;
}

}  // namespace

std::optional<Mirror> findMirror(const Rig& rig) {
    const std::vector<RestJoint> joints = restJoints(rig);
    if (joints.size() < 3) return std::nullopt;
    const Vector3 middle = meanOf(joints);
    const double size = sizeOf(joints, middle);
    if (!(size > 0) || areInARow(joints, middle, size)) return std::nullopt;

    const SymmetrySearch search(joints, middle, size);
    const Vector3 up = unitVector(rig.upAxis);
    const Vector3 custom = customaryLeft(rig.upAxis);
    const Vector3 across = cross(custom, up);
    std::optional<double> best;
    Vector3 left{};
    for (int i = 0; i < kDirections; ++i) {
        // Alternately to both sides of the customary direction, which wins where several are equal.
        const double angle = (i % 2 == 0 ? i / 2 : -(i + 1) / 2) * kPi / kDirections;
        const Vector3 normal = std::cos(angle) * custom + std::sin(angle) * across;
        const auto quality = search.quality(normal);
        if (!quality || (best && *quality <= *best + 1e-9)) continue;
        best = quality;
        left = normal;
    }
    if (!best) return std::nullopt;
    if (stepAhead(rig, joints, cross(left, up), size) < 0) left = -1 * left;
    return Mirror{left, dot(left, middle), kTolerance * size};
}

Vector3 customaryLeft(unsigned upAxis) { return unitVector(upAxis == 0 ? 1 : 0); }

}  // namespace Tolvane::Tools
