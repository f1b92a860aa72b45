#include <OpenVornik/VMatrix.h>

#include <limits>

#include <gtest/gtest.h>

TEST(Matrix, NewMatrixIsTheIdentity) {
    const VMatrix matrix;
    for (unsigned row = 0; row < 4; ++row) {
        for (unsigned column = 0; column < 4; ++column) {
            EXPECT_EQ(matrix[row][column], row == column ? 1.0 : 0.0);
        }
    }
}

TEST(Matrix, MatrixLiesRowByRow) {
    VMatrix matrix;
    matrix[1][2] = 7.0;
    EXPECT_EQ((&matrix.matrix[0][0])[6], 7.0);
}

TEST(Matrix, ComparisonCountsEveryElement) {
    for (unsigned i = 0; i < 16; ++i) {
        VMatrix matrix;
        matrix[i / 4][i % 4] = 5.0;
        EXPECT_TRUE(matrix != VMatrix()) << i;
    }
    EXPECT_TRUE(VMatrix() == VMatrix());
}

TEST(Matrix, ComparisonIsThatOfNumbers) {
    VMatrix zero;
    VMatrix negativeZero;
    negativeZero[0][1] = -0.0;
    EXPECT_TRUE(zero == negativeZero);
    VMatrix notANumber;
    notANumber[0][0] = std::numeric_limits<double>::quiet_NaN();
    const VMatrix same = notANumber;
    EXPECT_TRUE(notANumber != same);
}
