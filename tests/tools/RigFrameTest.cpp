#include "tests/support/TemporaryFolder.h"
#include "tests/tools/SampleRigs.h"
#include "tools/node/RigFrame.h"
#include "tools/rig/LoadRig.h"

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

// A rig of two joints: a root that its channel moves, below a node at (100, 0, 0), and a child, 1
// above it, that its channel turns by 90 degrees about z. At rest the root is at (10, 0, 0) and the
// child is not turned.
class RigFrameMatrices : public testing::Test {
protected:
    RigFrameMatrices() {
        rig.joints.resize(2);
        Joint& root = rig.joints[0];
        root.name = "root";
        root.aboveRoot[3][0] = 100;
        root.restLocal[3][0] = 10;
        root.channel = Channel{{{0, {20, 0, 0}}, {1, {30, 0, 0}}}, {{0, {}}}, {{0, {1, 1, 1}}}};
        Joint& child = rig.joints[1];
        child.name = "child";
        child.parent = 0;
        child.restLocal[3][1] = 1;
        const float half = std::sqrt(0.5F);
        child.channel = Channel{{{0, {0, 1, 0}}}, {{0, {half, 0, 0, half}}}, {{0, {1, 1, 1}}}};
        poseAtRest(rig);
    }

    static void expectMatrix(const VMatrix& actual,
                             const std::array<std::array<double, 4>, 4>& rows) {
        for (unsigned row = 0; row < 4; ++row)
            for (unsigned column = 0; column < 4; ++column)
                EXPECT_NEAR(actual[row][column], rows[row][column], 1e-5) << row << ',' << column;
    }

    Rig rig;
};

TEST_F(RigFrameMatrices, WorldIsLocalAndThenTheParentsWorld) {
    const RigFrame frame(rig);
    const auto& child = frame.joints()[1].matrices;
    expectMatrix(child[kLocal], {{{0, 1, 0, 0}, {-1, 0, 0, 0}, {0, 0, 1, 0}, {0, 1, 0, 1}}});
    expectMatrix(child[kWorld], {{{0, 1, 0, 0}, {-1, 0, 0, 0}, {0, 0, 1, 0}, {120, 1, 0, 1}}});
}

TEST_F(RigFrameMatrices, RestMatricesDoNotMoveWithTheFrame) {
    RigFrame frame(rig);
    for (const std::size_t number : {0U, 1U}) {
        frame.pose(number);
        const auto& child = frame.joints()[1].matrices;
        expectMatrix(child[kRestLocal], {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 1, 0, 1}}});
        expectMatrix(child[kRestWorld],
                     {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {110, 1, 0, 1}}});
        expectMatrix(child[kInverseRestWorld],
                     {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {-110, -1, 0, 1}}});
    }
}

TEST_F(RigFrameMatrices, SkinningMovesAPointFromRestToThePose) {
    const RigFrame frame(rig);
    // A point at (111, 1, 0), 1 beside the child at rest, moves to (120, 2, 0), 1 above the child.
    expectMatrix(frame.joints()[1].matrices[kSkinning],
                 {{{0, 1, 0, 0}, {-1, 0, 0, 0}, {0, 0, 1, 0}, {121, -109, 0, 1}}});
}

TEST_F(RigFrameMatrices, ParentWorldOfARootIsWhatStandsAboveIt) {
    const RigFrame frame(rig);
    expectMatrix(frame.joints()[0].matrices[kParentWorld],
                 {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {100, 0, 0, 1}}});
    expectMatrix(frame.joints()[1].matrices[kParentWorld],
                 {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {120, 0, 0, 1}}});
}

TEST_F(RigFrameMatrices, LocalFromRestLeadsFromTheRestLocalToTheLocal) {
    const RigFrame frame(rig);
    expectMatrix(frame.joints()[1].matrices[kLocalFromRest],
                 {{{0, 1, 0, 0}, {-1, 0, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}});
    expectMatrix(frame.joints()[0].matrices[kLocalFromRest],
                 {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {10, 0, 0, 1}}});
}

TEST_F(RigFrameMatrices, FollowTheChannelByTicksPerFrame) {
    rig.ticksPerFrame = 0.25;
    RigFrame frame(rig);
    frame.pose(2);
    EXPECT_DOUBLE_EQ(frame.joints()[0].matrices[kLocal][3][0], 25);
}

TEST_F(RigFrameMatrices, KeepAJointWithoutAChannelInItsRestPose) {
    rig.joints[1].channel.reset();
    const RigFrame frame(rig);
    EXPECT_EQ(frame.joints()[1].matrices[kLocal], rig.joints[1].restLocal);
}

}  // namespace
