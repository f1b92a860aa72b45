#include "tools/rig/MatrixMath.h"

#include <algorithm>
#include <cmath>

namespace Tolvane::Tools {
namespace {

unsigned rowOfLargest(const VMatrix& matrix, unsigned column) {
    unsigned largest = column;
    for (unsigned row = column + 1; row < 4; ++row)
        if (std::abs(matrix[row][column]) > std::abs(matrix[largest][column])) largest = row;
    return largest;
}

void swapRows(VMatrix& matrix, unsigned a, unsigned b) {
    std::swap_ranges(matrix[a], matrix[a] + 4, matrix[b]);
}

void scaleRow(VMatrix& matrix, unsigned row, double factor) {
    for (unsigned column = 0; column < 4; ++column) matrix[row][column] *= factor;
}

void subtractRow(VMatrix& matrix, unsigned from, unsigned row, double factor) {
    for (unsigned column = 0; column < 4; ++column)
        matrix[from][column] -= factor * matrix[row][column];
}

}  // namespace

VMatrix multiply(const VMatrix& first, const VMatrix& then) {
    VMatrix product;
    for (unsigned row = 0; row < 4; ++row)
        for (unsigned column = 0; column < 4; ++column) {
            double sum = 0;
            for (unsigned k = 0; k < 4; ++k) sum += first[row][k] * then[k][column];
            product[row][column] = sum;
        }
    return product;
}

// Gauss-Jordan elimination, with the largest element of each column as its pivot.
VMatrix inverse(const VMatrix& matrix) {
    VMatrix reduced = matrix;
    VMatrix result;
    for (unsigned column = 0; column < 4; ++column) {
        const unsigned pivotRow = rowOfLargest(reduced, column);
        const double pivot = reduced[pivotRow][column];
        if (pivot == 0 || !std::isfinite(1 / pivot)) return VMatrix();
        for (VMatrix* both : {&reduced, &result}) {
            swapRows(*both, column, pivotRow);
            scaleRow(*both, column, 1 / pivot);
        }
        for (unsigned row = 0; row < 4; ++row) {
            if (row == column) continue;
            const double factor = reduced[row][column];
            subtractRow(reduced, row, column, factor);
            subtractRow(result, row, column, factor);
        }
    }
    return result;
}

}  // namespace Tolvane::Tools
