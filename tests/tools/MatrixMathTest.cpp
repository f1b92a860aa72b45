#include "tools/rig/MatrixMath.h"

#include <limits>

#include <gtest/gtest.h>

namespace {

using Tolvane::Tools::inverse;
using Tolvane::Tools::multiply;

VMatrix translation(double x, double y, double z) {
    VMatrix matrix;
    matrix[3][0] = x;
    matrix[3][1] = y;
    matrix[3][2] = z;
    return matrix;
}

VMatrix quarterTurnAboutZ() {
    VMatrix matrix;
    matrix[0][0] = 0;
    matrix[0][1] = 1;
    matrix[1][0] = -1;
    matrix[1][1] = 0;
    return matrix;
}

TEST(MatrixProduct, DoesTheFirstAndThenTheSecond) {
    VMatrix movedThenTurned = quarterTurnAboutZ();
    movedThenTurned[3][1] = 7;
    EXPECT_EQ(multiply(translation(7, 0, 0), quarterTurnAboutZ()), movedThenTurned);

    VMatrix turnedThenMoved = quarterTurnAboutZ();
    turnedThenMoved[3][0] = 7;
    EXPECT_EQ(multiply(quarterTurnAboutZ(), translation(7, 0, 0)), turnedThenMoved);
}

TEST(MatrixInverse, UndoesBothTurnAndMove) {
    const VMatrix matrix = multiply(quarterTurnAboutZ(), translation(1, 2, 3));
    EXPECT_NE(inverse(matrix), matrix);
    EXPECT_EQ(multiply(matrix, inverse(matrix)), VMatrix());
    EXPECT_EQ(multiply(inverse(matrix), matrix), VMatrix());
}

TEST(MatrixInverse, IsExactForPowersOfTwo) {
    VMatrix matrix = translation(8, 0, 0);
    matrix[0][0] = 2;
    matrix[1][1] = 4;
    VMatrix expected = translation(-4, 0, 0);
    expected[0][0] = 0.5;
    expected[1][1] = 0.25;
    EXPECT_EQ(inverse(matrix), expected);
}

TEST(MatrixInverse, IsTheIdentityForAFlattenedMatrix) {
    VMatrix flat = translation(1, 2, 3);
    flat[1][1] = 0;
    EXPECT_EQ(inverse(flat), VMatrix());
}

TEST(MatrixInverse, HasNoNanForAMatrixWithNan) {
    VMatrix matrix;
    for (unsigned i = 0; i < 4; ++i) matrix[i][i] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(inverse(matrix), VMatrix());
}

}  // namespace
