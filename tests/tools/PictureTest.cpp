#include "tools/report/Picture.h"
#include "tools/report/Projection.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::HasSubstr;
using testing::Not;

VMatrix at(double x, double y, double z) {
    VMatrix matrix;
    matrix[3][0] = x;
    matrix[3][1] = y;
    matrix[3][2] = z;
    return matrix;
}

// Hips at (0, 4, 0), a hand of each side at (+-3, 4, 0), a head at (0, 9, 0).
class Picture : public testing::Test {
protected:
    Picture() {
        rig.file = "folder/me & you.bvh";
        rig.framesPerSecond = 10;
        const auto add = [&](const VMatrix& world, std::optional<std::size_t> parent) {
            rig.joints.emplace_back();
            rig.joints.back().parent = parent;
            rig.joints.back().restWorld = world;
            pose.worlds.push_back(world);
        };
        add(at(0, 4, 0), std::nullopt);
        add(at(3, 4, 0), 0);
        add(at(-3, 4, 0), 0);
        add(at(0, 9, 0), 0);
    }

    static int count(const std::string& text, const std::string& part) {
        int found = 0;
        for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
            ++found;
        return found;
    }

    Rig rig;
    Snapshot pose{7, {}};
};

class Projection : public Picture {};

TEST_F(Projection, TellsTheSidesOfTheBodyByTheRestPose) {
    EXPECT_EQ(bodySides(rig), (std::vector<BodySide>{BodySide::Middle, BodySide::Left,
                                                     BodySide::Right, BodySide::Middle}));
}

TEST_F(Projection, HasTheLeftOfTheBodyAtTheRightInTheViewFromTheFront) {
    const Figure figure = project(rig, pose, bodySides(rig));
    EXPECT_DOUBLE_EQ(figure.front[1].across, 3);
    EXPECT_DOUBLE_EQ(figure.front[2].across, -3);
    EXPECT_DOUBLE_EQ(figure.front[3].up, 9);
}

TEST_F(Projection, HasTheBodyLookToTheRightInTheViewFromTheSide) {
    pose.worlds[3] = at(0, 9, 4);
    const Figure figure = project(rig, pose, bodySides(rig));
    EXPECT_DOUBLE_EQ(figure.side[3].across - figure.side[0].across, 4);
    EXPECT_DOUBLE_EQ(figure.side[1].across, figure.side[2].across);
}

TEST_F(Projection, TurnsWithTheBody) {
    // Turned to look along x: its left is at negative z.
    pose.worlds = {at(50, 4, 0), at(50, 4, -3), at(50, 4, 3), at(54, 9, 0)};
    const Figure figure = project(rig, pose, bodySides(rig));
    EXPECT_DOUBLE_EQ(figure.front[1].across, 3);
    EXPECT_DOUBLE_EQ(figure.front[2].across, -3);
    EXPECT_DOUBLE_EQ(figure.side[3].across - figure.side[0].across, 4);
}

TEST_F(Picture, ShowsEachSnapshotInBothViews) {
    Snapshot later = pose;
    later.frame = 25;
    const std::string svg = drawPicture(rig, {pose, later});
    EXPECT_THAT(svg, testing::StartsWith("<svg "));
    EXPECT_THAT(svg, testing::EndsWith("</svg>\n"));
    for (const char* label :
         {">front<", ">side<", ">frame 7<", ">0.70 s<", ">frame 25<", ">2.50 s<"})
        EXPECT_THAT(svg, HasSubstr(label));
    // Four joints, of which three have a bone, in two snapshots and two views.
    EXPECT_EQ(count(svg, "h0"), 4 * 2 * 2);
    EXPECT_EQ(count(svg, "L"), 3 * 2 * 2);
}

TEST_F(Picture, DrawsBonesWhereTheSnapshotHasThem) {
    const std::string before = drawPicture(rig, {pose});
    pose.worlds[3] = at(1, 8, 0);
    EXPECT_NE(drawPicture(rig, {pose}), before);
}

TEST_F(Picture, NamesTheFileWithoutBreakingTheMarkup) {
    const std::string svg = drawPicture(rig, {pose});
    EXPECT_THAT(svg, HasSubstr("me &amp; you.bvh"));
    EXPECT_THAT(svg, Not(HasSubstr("folder")));
}

TEST_F(Picture, HasABackgroundOfItsOwn) {
    EXPECT_THAT(drawPicture(rig, {pose}), HasSubstr("fill=\"#ffffff\""));
}

TEST_F(Picture, LeavesOutJointsWithoutAFinitePosition) {
    pose.worlds[1][3][0] = std::numeric_limits<double>::quiet_NaN();
    pose.worlds[1][3][1] = std::numeric_limits<double>::infinity();
    const std::string svg = drawPicture(rig, {pose});
    EXPECT_THAT(svg, Not(HasSubstr("nan")));
    EXPECT_THAT(svg, Not(HasSubstr("inf")));
}

TEST_F(Picture, DrawsASingleJointAsADot) {
    rig.joints.resize(1);
    pose.worlds.resize(1);
    const std::string svg = drawPicture(rig, {pose});
    EXPECT_EQ(count(svg, "h0"), 2);
    EXPECT_THAT(svg, Not(HasSubstr("nan")));
    EXPECT_THAT(svg, Not(HasSubstr("inf")));
}

TEST_F(Picture, DrawsOnlyTheJointsThatTheSnapshotHas) {
    pose.worlds.resize(2);
    EXPECT_EQ(count(drawPicture(rig, {pose}), "h0"), 2 * 2);
}

}  // namespace
