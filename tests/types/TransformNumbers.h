// Transforms whose 128 numbers all differ, and how they are compared.
#pragma once

#include "types/Transform.h"

#include <algorithm>
#include <cstring>

namespace TypesTests {

constexpr int kNumbers = 128;

// 1000 * `seed` + 0 to 127, in memory order.
inline Core::Transform::Transform numbered(int seed) {
    double numbers[kNumbers];
    for (int i = 0; i < kNumbers; ++i) numbers[i] = 1000 * seed + i;
    Core::Transform::Transform transform;
    std::memcpy(&transform, numbers, sizeof transform);
    return transform;
}

inline bool sameNumbers(const Core::Transform::Transform& a, const Core::Transform::Transform& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

inline bool isAllZeros(const Core::Transform::Transform& transform) {
    double numbers[kNumbers];
    std::memcpy(numbers, &transform, sizeof numbers);
    return std::all_of(numbers, numbers + kNumbers, [](double number) { return number == 0.0; });
}

}  // namespace TypesTests
