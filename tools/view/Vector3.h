// Points and directions in the world.
#pragma once

#include <OpenVornik/VMatrix.h>

#include <array>
#include <cmath>

namespace Tolvane::Tools {

using Vector3 = std::array<double, 3>;

// Where a joint's world matrix puts it.
inline Vector3 positionOf(const VMatrix& world) { return {world[3][0], world[3][1], world[3][2]}; }

inline Vector3 operator+(const Vector3& a, const Vector3& b) {
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

inline Vector3 operator-(const Vector3& a, const Vector3& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

inline Vector3 operator*(double factor, const Vector3& a) {
    return {factor * a[0], factor * a[1], factor * a[2]};
}

inline double dot(const Vector3& a, const Vector3& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline Vector3 cross(const Vector3& a, const Vector3& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

inline double length(const Vector3& a) { return std::hypot(a[0], a[1], a[2]); }

// `axis` is 0, 1 or 2 for x, y or z.
inline Vector3 unitVector(unsigned axis) {
    Vector3 unit{};
    unit[axis] = 1;
    return unit;
}

}  // namespace Tolvane::Tools
