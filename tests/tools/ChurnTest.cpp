#include "tools/node/Churn.h"
#include "tools/node/FrameData.h"

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

std::vector<std::size_t> countsOf(std::size_t total) {
    std::vector<std::size_t> counts;
    for (std::size_t evaluation = 0; evaluation < 5; ++evaluation)
        counts.push_back(countOf(churnShare(evaluation), total));
    return counts;
}

TEST(Churn, GoesThroughAllNoneHalfAndOneMoreAndBeginsAgain) {
    EXPECT_EQ(countsOf(31), (std::vector<std::size_t>{31, 0, 15, 16, 31}));
    EXPECT_EQ(countsOf(2), (std::vector<std::size_t>{2, 0, 1, 2, 2}));
    EXPECT_EQ(countsOf(1), (std::vector<std::size_t>{1, 0, 0, 1, 1}));
}

class FrameDataOfShares : public testing::Test {
protected:
    FrameData data(Share share) const {
        return frameData("rig", joints, {{0, 1, 2, 3}, {4}}, share);
    }

    std::vector<PosedJoint> joints{
        {"a", 0, {}}, {"b", 0, {}}, {"c", 0, {}}, {"d", 0, {}}, {"e", 0, {}}};
};

TEST_F(FrameDataOfShares, AllHoldsEveryJointAndEveryLimb) {
    const FrameData all = data(Share::All);
    EXPECT_EQ(all.rig.name, "rig");
    EXPECT_EQ(all.rig.first, &joints[0]);
    EXPECT_EQ(all.rig.joints.size(), 5U);
    ASSERT_EQ(all.limbs.size(), 2U);
    EXPECT_EQ(all.limbs[0].joints.size(), 4U);
    EXPECT_EQ(all.limbs[1].name, "e");
    EXPECT_EQ(all.limbs[1].first, &joints[4]);
}

TEST_F(FrameDataOfShares, NoneStillHasAFirstJoint) {
    const FrameData none = data(Share::None);
    EXPECT_TRUE(none.rig.joints.empty());
    EXPECT_TRUE(none.limbs.empty());
    EXPECT_EQ(none.rig.first, &joints[0]);
}

TEST_F(FrameDataOfShares, HalfIsHalfOfTheJointsOfTheLimbsAndOfEachLimb) {
    const FrameData half = data(Share::Half);
    EXPECT_EQ(half.rig.joints.size(), 2U);
    ASSERT_EQ(half.limbs.size(), 1U);
    EXPECT_EQ(half.limbs[0].joints.size(), 2U);
}

}  // namespace
