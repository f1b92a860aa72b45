// The graph's matrix: 4 rows of 4 doubles, row by row in memory. A value-initialised one is all
// zeros.
#pragma once

#include <Pelmor/ElementTraits.h>

#include <type_traits>

namespace Math {

struct double4x4 {
    double rows[4][4];
};

static_assert(sizeof(double4x4) == 16 * sizeof(double) && std::is_trivial_v<double4x4>);

}  // namespace Math

template <>
struct Pelmor::ElementTraits<Math::double4x4> : PlainElementTraits<0> {};
