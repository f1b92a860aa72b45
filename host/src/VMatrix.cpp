#include <OpenVornik/VMatrix.h>

#include <algorithm>

bool VMatrix::operator==(const VMatrix& other) const noexcept {
    return std::equal(&matrix[0][0], &matrix[0][0] + 16, &other.matrix[0][0]);
}
