#include "tools/rig/Animation.h"

#include <algorithm>

namespace Tolvane::Tools {
namespace {

aiVector3D between(const aiVector3D& a, const aiVector3D& b, float part) {
    return a + (b - a) * part;
}

aiQuaternion between(const aiQuaternion& a, const aiQuaternion& b, float part) {
    aiQuaternion result;
    aiQuaternion::Interpolate(result, a, b, part);
    return result.Normalize();
}

// At the time of a key the result is that key's value, not rounded by interpolation.
template <typename Key>
auto valueAt(const std::vector<Key>& keys, double tick) {
    const auto after =
        std::upper_bound(keys.begin(), keys.end(), tick,
                         [](double time, const Key& key) { return time < key.mTime; });
    if (after == keys.begin()) return keys.front().mValue;
    const Key& before = *(after - 1);
    if (after == keys.end() || tick == before.mTime) return before.mValue;
    const double part = (tick - before.mTime) / (after->mTime - before.mTime);
    return between(before.mValue, after->mValue, static_cast<float>(part));
}

}  // namespace

VMatrix toHost(const aiMatrix4x4& matrix) {
    VMatrix transposed;
    for (unsigned row = 0; row < 4; ++row)
        for (unsigned column = 0; column < 4; ++column)
            transposed[row][column] = static_cast<double>(matrix[column][row]);
    return transposed;
}

VMatrix Channel::sample(double tick) const {
    const aiVector3D position = valueAt(positions, tick);
    const aiVector3D scaling = valueAt(scalings, tick);
    VMatrix matrix = toHost(aiMatrix4x4(valueAt(rotations, tick).GetMatrix()));
    for (unsigned column = 0; column < 3; ++column) {
        for (unsigned row = 0; row < 3; ++row)
            matrix[row][column] *= static_cast<double>(scaling[row]);
        matrix[3][column] = static_cast<double>(position[column]);
    }
    return matrix;
}

double Channel::lastTick() const {
    return std::max({positions.back().mTime, rotations.back().mTime, scalings.back().mTime});
}

}  // namespace Tolvane::Tools
