#include "tests/tools/DrawnRig.h"
#include "tools/view/Framing.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::ElementsAre;

class Framing : public testing::Test, protected DrawnRig {
protected:
    Framing() { addBody(); }

    // The pose, moved by `x` and `y`.
    void addFrame(float x, float y) {
        RecordedFrame frame{recording.frames.size(), 0, {}, {}, {}};
        for (const VMatrix& world : pose.worlds)
            for (unsigned axis = 0; axis < 3; ++axis)
                frame.wentIn.push_back(static_cast<float>(world[3][axis]) + (axis == 0   ? x
                                                                             : axis == 1 ? y
                                                                                         : 0));
        recording.frames.push_back(frame);
    }

    Tolvane::Tools::Recording recording;
};

TEST_F(Framing, IsAsLargeAsTheFigureAndStandsBelowIt) {
    addFrame(0, 0);
    const auto framing = framingOf(rig, recording);
    EXPECT_DOUBLE_EQ(framing.ground, 4);
    EXPECT_DOUBLE_EQ(framing.size, 9 - 5.25);
    EXPECT_THAT(framing.left, ElementsAre(1, 0, 0));
    EXPECT_THAT(framing.up, ElementsAre(0, 1, 0));
}

TEST_F(Framing, StandsOnTheGroundWhicheverAxisIsUp) {
    rig.upAxis = 0;
    addFrame(7, 0);
    const auto framing = framingOf(rig, recording);
    EXPECT_DOUBLE_EQ(framing.ground, 4);
    EXPECT_THAT(framing.up, ElementsAre(1, 0, 0));
    EXPECT_EQ(framing.left[0], 0);
}

TEST_F(Framing, FollowsTheFigureOverTheGroundButNotWhenItJumps) {
    addFrame(0, 0);
    addFrame(500, 2);
    const auto framing = framingOf(rig, recording);
    EXPECT_DOUBLE_EQ(framing.size, 9 - 5.25);
    EXPECT_DOUBLE_EQ(framing.middles[1][0] - framing.middles[0][0], 500);
    EXPECT_DOUBLE_EQ(framing.middles[0][1], 7.5);
    EXPECT_DOUBLE_EQ(framing.middles[1][1], 7.5);
    addFrame(0, 500);
    EXPECT_GT(framingOf(rig, recording).middles[2][1], 500);
}

TEST_F(Framing, IsNotDisturbedByWhatIsFarOffOrNowhere) {
    add(at(1e7, 0, 0), 0);
    add(at(0, std::numeric_limits<double>::quiet_NaN(), 0), 0);
    addFrame(0, 0);
    EXPECT_DOUBLE_EQ(framingOf(rig, recording).size, 9 - 5.25);
}

TEST_F(Framing, HasASizeEvenWithoutOne) {
    rig.joints.resize(1);
    pose.worlds = {at(0, 0, 0)};
    addFrame(0, 0);
    EXPECT_EQ(framingOf(rig, recording).size, 1);
    recording.frames[0].wentIn.assign(3, std::numeric_limits<float>::quiet_NaN());
    const auto nowhere = framingOf(rig, recording);
    EXPECT_EQ(nowhere.size, 1);
    EXPECT_EQ(nowhere.ground, 0);
    EXPECT_THAT(nowhere.middles[0], ElementsAre(0, 0, 0));
}

}  // namespace
