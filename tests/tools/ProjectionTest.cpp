#include "tests/tools/DrawnRig.h"
#include "tools/view/Projection.h"

#include <cmath>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::ElementsAre;
using testing::IsEmpty;

class Projection : public testing::Test, protected DrawnRig {
protected:
    Projection() { addBody(); }

    Figure onlyFigure() const { return project(rig, {pose}).figures.at(0); }
    std::vector<std::size_t> notDrawn() const { return project(rig, {pose}).notDrawn; }
};

TEST_F(Projection, HasTheLeftOfTheBodyAtTheRightInTheViewFromTheFront) {
    const Figure figure = onlyFigure();
    EXPECT_DOUBLE_EQ(figure.frontOrAbove[1]->across, 3);
    EXPECT_DOUBLE_EQ(figure.frontOrAbove[2]->across, -3);
    EXPECT_DOUBLE_EQ(figure.frontOrAbove[3]->up, 9);
}

TEST_F(Projection, HasTheBodyLookToTheRightInTheViewFromTheSide) {
    pose.worlds[3] = at(0, 9, 4);
    const Figure figure = onlyFigure();
    EXPECT_DOUBLE_EQ(figure.side[3]->across - figure.side[0]->across, 4);
    EXPECT_DOUBLE_EQ(figure.side[1]->across, figure.side[2]->across);
}

TEST_F(Projection, TurnsWithTheBody) {
    // Turned to look along x: its left is at negative z.
    pose.worlds = {at(50, 4, 0), at(50, 4, -3), at(50, 4, 3), at(54, 9, 0)};
    const Figure figure = onlyFigure();
    EXPECT_DOUBLE_EQ(figure.frontOrAbove[1]->across, 3);
    EXPECT_DOUBLE_EQ(figure.frontOrAbove[2]->across, -3);
    EXPECT_DOUBLE_EQ(figure.side[3]->across - figure.side[0]->across, 4);
}

TEST_F(Projection, HasTheUpAxisOfTheRigUpwards) {
    rig.upAxis = 2;
    const auto zUp = [](double x, double y, double z) { return at(x, -z, y); };
    pose.worlds = {zUp(0, 4, 0), zUp(3, 4, 0), zUp(-3, 4, 0), zUp(0, 9, 4)};
    for (std::size_t i = 0; i < 4; ++i) rig.joints[i].restWorld = pose.worlds[i];
    const Figure figure = onlyFigure();
    EXPECT_DOUBLE_EQ(figure.frontOrAbove[1]->across, 3);
    EXPECT_DOUBLE_EQ(figure.frontOrAbove[3]->up, 9);
    EXPECT_DOUBLE_EQ(figure.side[3]->across - figure.side[0]->across, 4);
}

// Hips and shoulders of both sides are in the same places, as motion capture often has them.
TEST_F(Projection, TellsTheLeftFurtherOutWhereTheSidesBeginInTheMiddle) {
    rig.joints.clear();
    pose.worlds.clear();
    add(at(0, 9, 0), std::nullopt, "Hips");
    add(at(0, 9, 0), 0, "LHipJoint");
    add(at(0, 8, 2), 1, "LeftUpLeg");
    add(at(0, 9, 0), 0, "RHipJoint");
    add(at(0, 8, -2), 3, "RightUpLeg");
    add(at(9, 20, 0), 0, "Nose");
    EXPECT_DOUBLE_EQ(onlyFigure().frontOrAbove[2]->across, 2);
}

TEST_F(Projection, ShowsTheBroadSideOfAFigureWithoutSides) {
    rig.joints.resize(2);
    pose.worlds = {at(0, 0, 0), at(-3, 9, 4)};
    for (std::size_t i = 0; i < 2; ++i) rig.joints[i].restWorld = pose.worlds[i];
    const Figure figure = onlyFigure();
    EXPECT_DOUBLE_EQ(std::abs(figure.frontOrAbove[1]->across), 2.5);
    EXPECT_NEAR(figure.side[1]->across, 0, 1e-12);
}

TEST_F(Projection, SeesAFigureThatLiesFromAboveAndFromTheSide) {
    // Wherever it heads, it does so to the right, with its left at the back.
    for (const double heading : {1.0, -1.0}) {
        pose.worlds = {at(0, 1, 4 * heading), at(3 * heading, 1.5, 4 * heading),
                       at(-3 * heading, 0.5, 4 * heading), at(0, 1, 13 * heading)};
        const auto projection = project(rig, {pose});
        EXPECT_TRUE(projection.isSeenFromAbove);
        const Figure& figure = projection.figures.at(0);
        EXPECT_NEAR(figure.frontOrAbove[3]->across - figure.frontOrAbove[0]->across, 9, 0.01);
        EXPECT_NEAR(figure.frontOrAbove[1]->up - figure.frontOrAbove[2]->up, 6, 0.01);
        EXPECT_DOUBLE_EQ(figure.side[1]->across, figure.frontOrAbove[1]->across);
        EXPECT_DOUBLE_EQ(figure.side[1]->up, 1.5);
    }
    EXPECT_FALSE(project(rig, {pose, {8, {at(0, 4, 0), at(3, 4, 0), at(-3, 4, 0), at(0, 9, 0)}}})
                     .isSeenFromAbove);
}

TEST_F(Projection, LeavesOutWhatIsFarFromTheRest) {
    add(at(1e5, 4, 0), 0, "Marker");
    EXPECT_THAT(notDrawn(), ElementsAre(4));
    EXPECT_FALSE(onlyFigure().side[4]);
    EXPECT_DOUBLE_EQ(onlyFigure().frontOrAbove[1]->across, 3);
}

TEST_F(Projection, LeavesOutARootThatTheBodyWalksAwayFrom) {
    for (Joint& joint : rig.joints) joint.parent = joint.parent ? *joint.parent + 1 : 0;
    rig.joints.insert(rig.joints.begin(), Joint());
    std::vector<Snapshot> snapshots(3);
    for (std::size_t i = 0; i < 3; ++i) {
        snapshots[i].worlds = {at(0, 0, 0)};
        const double z = 8.0 * static_cast<double>(i);
        for (const VMatrix& world : pose.worlds)
            snapshots[i].worlds.push_back(at(world[3][0], world[3][1], z));
    }
    EXPECT_THAT(project(rig, snapshots).notDrawn, ElementsAre(0));
    EXPECT_DOUBLE_EQ(project(rig, snapshots).figures[2].side[1]->across, 0);
}

TEST_F(Projection, KeepsABoneThatIsMuchLongerThanTheOthers) {
    rig.joints.resize(3);
    pose.worlds = {at(0, 0, 0), at(0, 1, 0), at(0, 10, 0)};
    EXPECT_THAT(notDrawn(), IsEmpty());
}

TEST_F(Projection, KeepsABodyBelowAFaceOfManyJoints) {
    add(at(0, 7.5, 0), 0);
    for (int i = 0; i < 100; ++i) add(at(0.01 * (i % 10), 9 + 0.1 * (i / 10), 0), 3);
    EXPECT_THAT(notDrawn(), IsEmpty());
}

TEST_F(Projection, LeavesOutJointsWithoutAFinitePosition) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value : {std::nan(""), infinity, -infinity, 1e308}) {
        pose.worlds[1][3][1] = value;
        EXPECT_THAT(notDrawn(), ElementsAre(1)) << value;
    }
    for (VMatrix& world : pose.worlds) world[3][0] = infinity;
    EXPECT_THAT(notDrawn(), ElementsAre(0, 1, 2, 3));
}

TEST_F(Projection, TakesSnapshotsOfFewerOrMoreJointsThanTheRigHas) {
    pose.worlds.resize(2);
    EXPECT_EQ(onlyFigure().side.size(), 2U);
    pose.worlds.resize(9);
    EXPECT_EQ(onlyFigure().side.size(), 4U);
    pose.worlds.clear();
    EXPECT_THAT(onlyFigure().side, IsEmpty());
}

TEST_F(Projection, KnowsAFigureWhoseJointsAreAllInOnePlace) {
    EXPECT_FALSE(project(rig, {pose}).isPoint);
    for (VMatrix& world : pose.worlds) world = at(1, 2, 3);
    Snapshot later = pose;
    for (VMatrix& world : later.worlds) world = at(4, 5, 6);
    EXPECT_TRUE(project(rig, {pose, later}).isPoint);
}

}  // namespace
