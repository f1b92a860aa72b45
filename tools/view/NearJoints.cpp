#include "tools/view/NearJoints.h"

#include <algorithm>

namespace Tolvane::Tools {
namespace {

// Beyond this, squares and differences of coordinates would no longer be finite.
constexpr double kFarthest = 1e100;

Vector3 middleOf(const Points& points) {
    Vector3 middle{};
    for (unsigned axis = 0; axis < 3; ++axis) {
        std::vector<double> values;
        for (const auto& point : points)
            if (point) values.push_back((*point)[axis]);
        if (values.empty()) continue;
        const auto median = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::nth_element(values.begin(), median, values.end());
        middle[axis] = *median;
    }
    return middle;
}

// How far from the middle a joint may be. Most joints belong to the figure, and its farther ones
// follow each other at growing distances without a great gap. How great a gap is depends on how
// many joints are this side of it: of few, one bone may well be much longer than the others.
double reachOf(std::vector<double> distances) {
    std::sort(distances.begin(), distances.end());
    for (std::size_t i = distances.size() / 2; i + 1 < distances.size(); ++i) {
        const double allowed = 5 + 30 / static_cast<double>(i + 1);
        if (distances[i] > 0 && distances[i + 1] > allowed * distances[i]) return distances[i];
    }
    return distances.empty() ? 0 : distances.back();
}

// Half of the joints are within this distance of the middle.
double medianDistance(const Points& points) {
    const Vector3 middle = middleOf(points);
    std::vector<double> distances;
    for (const auto& point : points)
        if (point) distances.push_back(length(*point - middle));
    if (distances.empty()) return 0;
    const auto median = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
    std::nth_element(distances.begin(), median, distances.end());
    return *median;
}

// By how much the length of the bone from `parent` to `joint` changes.
double stretch(std::size_t joint, std::size_t parent, const std::vector<Points>& snapshots) {
    std::optional<double> least, most;
    for (const Points& points : snapshots) {
        if (joint >= points.size() || !points[joint] || !points[parent]) continue;
        const double size = length(*points[joint] - *points[parent]);
        least = std::min(least.value_or(size), size);
        most = std::max(most.value_or(size), size);
    }
    return most ? *most - *least : 0;
}

}  // namespace

Points pointsOf(const std::vector<VMatrix>& worlds) {
    Points points;
    for (const VMatrix& world : worlds) {
        const Vector3 point = positionOf(world);
        const bool isDrawable = std::all_of(point.begin(), point.end(), [](double value) {
            return std::abs(value) <= kFarthest;  // which NaN is not either
        });
        points.push_back(isDrawable ? std::optional(point) : std::nullopt);
    }
    return points;
}

Vector3 meanOf(const Points& points) {
    Vector3 sum{};
    double count = 0;
    for (const auto& point : points) {
        if (!point) continue;
        sum = sum + *point;
        ++count;
    }
    return count > 0 ? 1 / count * sum : sum;
}

std::vector<bool> nearJoints(const Points& points) {
    const Vector3 middle = middleOf(points);
    std::vector<double> distances;
    for (const auto& point : points)
        if (point) distances.push_back(length(*point - middle));
    const double reach = reachOf(std::move(distances));

    std::vector<bool> isNear;
    for (const auto& point : points) isNear.push_back(point && length(*point - middle) <= reach);
    return isNear;
}

std::vector<bool> jointsThatStay(const Rig& rig, const std::vector<Points>& snapshots) {
    double mostStretch = 0;
    for (const Points& points : snapshots)
        mostStretch = std::max(mostStretch, 2 * medianDistance(points));

    // The first joint of the part that each joint is in, and how many joints begin there.
    std::vector<std::size_t> partOf, sizes(rig.joints.size());
    for (std::size_t i = 0; i < rig.joints.size(); ++i) {
        const auto parent = rig.joints[i].parent;
        const bool isJoined = parent && stretch(i, *parent, snapshots) <= mostStretch;
        partOf.push_back(isJoined ? partOf[*parent] : i);
        ++sizes[partOf[i]];
    }
    const std::size_t largest = *std::max_element(sizes.begin(), sizes.end());
    std::vector<bool> stays;
    stays.reserve(partOf.size());
    for (const std::size_t part : partOf) stays.push_back(4 * sizes[part] > largest);
    return stays;
}

}  // namespace Tolvane::Tools
