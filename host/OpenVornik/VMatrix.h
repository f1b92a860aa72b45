// The host's 4 by 4 matrix of doubles, row by row in memory. A new one is the identity.
#pragma once

#include <OpenVornik/Export.h>

#include <type_traits>

class OPENVORNIK_API VMatrix {
public:
    double matrix[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};

    double* operator[](unsigned row) noexcept { return matrix[row]; }
    const double* operator[](unsigned row) const noexcept { return matrix[row]; }

    // Equal as numbers, so 0.0 equals -0.0 and a NaN equals nothing.
    bool operator==(const VMatrix& other) const noexcept;
    bool operator!=(const VMatrix& other) const noexcept { return !(*this == other); }
};

static_assert(sizeof(VMatrix) == 16 * sizeof(double));
static_assert(std::is_trivially_copyable_v<VMatrix>);
