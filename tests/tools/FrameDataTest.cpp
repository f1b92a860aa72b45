#include "tools/node/FrameData.h"

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

class ChurnedFrameData : public testing::Test {
protected:
    FrameData data(Share share) const {
        return frameData("rig", joints, {{0, 1, 2, 3}, {4}}, share);
    }

    std::vector<PosedJoint> joints{
        {"a", 0, {}}, {"b", 0, {}}, {"c", 0, {}}, {"d", 0, {}}, {"e", 0, {}}};
};

TEST_F(ChurnedFrameData, HoldsEveryJointAndEveryLimbForShareAll) {
    const FrameData all = data(Share::All);
    EXPECT_EQ(all.rig.name, "rig");
    EXPECT_EQ(all.rig.first, &joints[0]);
    EXPECT_EQ(all.rig.joints.size(), 5U);
    ASSERT_EQ(all.limbs.size(), 2U);
    EXPECT_EQ(all.limbs[0].joints.size(), 4U);
    EXPECT_EQ(all.limbs[1].name, "e");
    EXPECT_EQ(all.limbs[1].first, &joints[4]);
}

TEST_F(ChurnedFrameData, HasAFirstJointEvenForShareNone) {
    const FrameData none = data(Share::None);
    EXPECT_TRUE(none.rig.joints.empty());
    EXPECT_TRUE(none.limbs.empty());
    EXPECT_EQ(none.rig.first, &joints[0]);
}

TEST_F(ChurnedFrameData, HoldsHalfOfTheJointsOfTheLimbsAndOfEachLimbForShareHalf) {
    const FrameData half = data(Share::Half);
    EXPECT_EQ(half.rig.joints.size(), 2U);
    ASSERT_EQ(half.limbs.size(), 1U);
    EXPECT_EQ(half.limbs[0].joints.size(), 2U);
}

}  // namespace
