// Matrices have the same sixteen doubles in the same memory order on both sides.
#pragma once

#include <Math/double4x4.h>
#include <OpenVornik/VMatrix.h>

#include <cstring>

namespace Tolvane {

static_assert(sizeof(Math::double4x4) == sizeof(VMatrix));

inline void copyMatrix(const VMatrix& source, Math::double4x4& destination) noexcept {
    std::memcpy(destination.rows, source.matrix, sizeof destination.rows);
}

inline void copyMatrix(const Math::double4x4& source, VMatrix& destination) noexcept {
    std::memcpy(destination.matrix, source.rows, sizeof destination.matrix);
}

}  // namespace Tolvane
