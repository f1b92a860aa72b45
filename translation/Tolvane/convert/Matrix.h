// Matrices are the same sixteen doubles in the same memory order on both sides, and the host's is
// nothing else: its bytes are copied, so that it does not matter how it names them.
#pragma once

#include <Math/double4x4.h>
#include <OpenVornik/VMatrix.h>

#include <cstring>

namespace Tolvane {

static_assert(sizeof(Math::double4x4) == sizeof(VMatrix));

inline void copyMatrix(const VMatrix& source, Math::double4x4& destination) noexcept {
    std::memcpy(destination.rows, &source, sizeof destination.rows);
}

inline void copyMatrix(const Math::double4x4& source, VMatrix& destination) noexcept {
    std::memcpy(static_cast<void*>(&destination), source.rows, sizeof source.rows);
}

}  // namespace Tolvane
