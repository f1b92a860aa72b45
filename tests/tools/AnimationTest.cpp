#include "tools/rig/Animation.h"

#include <cmath>

#include <gtest/gtest.h>

namespace {

using Tolvane::Tools::Channel;

Channel channelWithPositions(std::vector<aiVectorKey> positions) {
    return {std::move(positions), {{0, {}}}, {{0, {1, 1, 1}}}};
}

TEST(Channel, InterpolatesPositionsLinearly) {
    const Channel channel = channelWithPositions({{0, {0, 0, 0}}, {2, {8, 0, -4}}});
    const VMatrix quarter = channel.sample(0.5);
    EXPECT_DOUBLE_EQ(quarter[3][0], 2);
    EXPECT_DOUBLE_EQ(quarter[3][2], -1);
}

TEST(Channel, HasTheExactValueOfAKeyAtItsTime) {
    const Channel channel =
        channelWithPositions({{0, {0, 0, 0}}, {1, {0.1F, 0, 0}}, {2, {9, 0, 0}}});
    EXPECT_EQ(channel.sample(1)[3][0], static_cast<double>(0.1F));
}

TEST(Channel, HoldsTheNearestKeyBeforeTheFirstAndAfterTheLast) {
    const Channel channel = channelWithPositions({{1, {3, 0, 0}}, {2, {5, 0, 0}}});
    EXPECT_EQ(channel.sample(-7)[3][0], 3);
    EXPECT_EQ(channel.sample(100)[3][0], 5);
}

TEST(Channel, TurnsEvenlyBetweenTwoRotations) {
    const float half = std::sqrt(0.5F);
    const Channel channel{
        {{0, {}}}, {{0, {1, 0, 0, 0}}, {2, {half, 0, 0, half}}}, {{0, {1, 1, 1}}}};
    const VMatrix middle = channel.sample(1);
    EXPECT_NEAR(middle[0][0], std::cos(M_PI / 4), 1e-6);
    EXPECT_NEAR(middle[0][1], std::sin(M_PI / 4), 1e-6);
    EXPECT_NEAR(middle[1][0], -std::sin(M_PI / 4), 1e-6);
}

TEST(Channel, ScalesThenRotatesThenMoves) {
    const float half = std::sqrt(0.5F);
    const Channel channel{{{0, {5, 6, 7}}}, {{0, {half, 0, 0, half}}}, {{0, {2, 3, 4}}}};
    const VMatrix matrix = channel.sample(0);
    EXPECT_NEAR(matrix[0][1], 2, 1e-6);
    EXPECT_NEAR(matrix[1][0], -3, 1e-6);
    EXPECT_NEAR(matrix[2][2], 4, 1e-6);
    EXPECT_DOUBLE_EQ(matrix[3][0], 5);
    EXPECT_DOUBLE_EQ(matrix[3][1], 6);
    EXPECT_DOUBLE_EQ(matrix[3][2], 7);
}

TEST(Channel, EndsWithTheLastOfAllItsKeys) {
    const Channel channel{{{0, {}}, {3, {}}}, {{0, {}}, {8, {}}}, {{0, {1, 1, 1}}}};
    EXPECT_EQ(channel.lastTick(), 8);
}

}  // namespace
