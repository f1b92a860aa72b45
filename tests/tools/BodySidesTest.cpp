#include "tests/tools/DrawnRig.h"
#include "tools/view/BodySides.h"

#include <cmath>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

constexpr BodySide L = BodySide::Left, M = BodySide::Middle, R = BodySide::Right;

TEST(SideOfName, FindsWordsAndLettersHoweverTheyAreJoined) {
    for (const char* left :
         {"LeftArm", "leftHand", "left_arm", "lefthand", "arm_left", "Arm.Left", "LEFT_ARM",
          "mixamorig:LeftArm", "L_Arm", "arm_l", "Hand.L", "Hand.L.001", "LHipJoint",
          "upperarm_l_01", "Bip01 L Thigh", "footL", "lft_knee", "\u5de6\u8155"})
        EXPECT_EQ(sideOfName(left).side, L) << left;
    for (const char* right : {"RightArm", "mixamorig:RightArm", "R_Arm", "arm_r", "Hand.R",
                              "RThumb", "RIGHT FOOT", "rgt_knee", "\u53f3\u8155"})
        EXPECT_EQ(sideOfName(right).side, R) << right;
}

TEST(SideOfName, IsOfNoSideWhereTheNameSaysNoneOrBoth) {
    for (const char* middle : {"", "Hips", "Root", "Leg", "LLeg_R", "LeftToRight", "arm_lr",
                               "Cleft", "left:Spine", "L:Spine", "Arml", "\xff\xfe", ":", "1"})
        EXPECT_EQ(sideOfName(middle).side, M) << middle;
}

class BodySides : public testing::Test, protected DrawnRig {
protected:
    // Without names: legs with feet that point along `ahead`, arms, and a head.
    void addFigure(double turn, double ahead = 1) {
        const auto put = [&](double x, double y, double z, std::optional<std::size_t> parent) {
            add(at(x * std::cos(turn) + z * std::sin(turn), y,
                   z * std::cos(turn) - x * std::sin(turn)),
                parent);
        };
        put(0, 10, 0, std::nullopt);
        for (const double side : {1, -1}) {
            const std::size_t hip = rig.joints.size();
            put(side * 1.0, 9, 0, 0);
            put(side * 1.2, 0.5, 0, hip);
            put(side * 1.2, 0, 2 * ahead, hip + 1);
        }
        put(0, 15, 0, 0);
        for (const double side : {1, -1}) put(side * 6.0, 15, 0, 7);
        put(0, 18, 0.5, 7);
    }

    // The left hand, the right hand.
    std::pair<BodySide, BodySide> hands() const {
        const std::vector<BodySide> sides = bodySides(rig);
        return {sides[8], sides[9]};
    }
};

TEST_F(BodySides, AreWhatTheNamesSayWhereverTheJointsAre) {
    add(at(0, 0, 0), std::nullopt, "Hips");
    add(at(-1, 0, 0), 0, "leg_l");
    add(at(-2, 0, 0), 1, "toe");
    add(at(1, 0, 0), 0, "leg_r");
    add(at(0, 1, 0), 0, "head");
    EXPECT_EQ(bodySides(rig), (std::vector<BodySide>{M, L, L, R, M}));
}

TEST_F(BodySides, TakeOneSideFromWordsButNotFromLetters) {
    add(at(0, 0, 0), std::nullopt, "LeftArm");
    EXPECT_EQ(bodySides(rig), std::vector<BodySide>{L});
    rig.joints[0].name = "Joint_R";
    EXPECT_EQ(bodySides(rig), std::vector<BodySide>{M});
}

TEST_F(BodySides, FollowTheSymmetryOfTheRestPoseWithoutNames) {
    addBody();
    EXPECT_EQ(bodySides(rig), (std::vector<BodySide>{M, L, R, M}));
}

TEST_F(BodySides, FindTheSymmetryOfAFigureThatFacesAnyDirection) {
    for (int degrees = -180; degrees < 180; degrees += 7) {
        rig.joints.clear();
        addFigure(degrees * 3.14159265358979 / 180);
        EXPECT_EQ(hands(), std::pair(L, R)) << degrees;
    }
}

TEST_F(BodySides, TellLeftFromRightByTheFeet) {
    addFigure(0, 1);
    EXPECT_EQ(hands(), std::pair(L, R));
    rig.joints.clear();
    addFigure(0, -1);
    EXPECT_EQ(hands(), std::pair(R, L));
}

TEST_F(BodySides, FindTheSymmetryAboutAnyUpAxis) {
    addFigure(0);
    for (const unsigned upAxis : {2U, 0U}) {
        // x, y, z become y, z, x each time, which keeps what is left.
        for (Joint& joint : rig.joints) {
            double* position = joint.restWorld[3];
            const double last = position[2];
            position[2] = position[1];
            position[1] = position[0];
            position[0] = last;
        }
        rig.upAxis = upAxis;
        EXPECT_EQ(hands(), std::pair(L, R)) << upAxis;
    }
}

TEST_F(BodySides, AreUnknownWithoutASymmetry) {
    add(at(0, 0, 0), std::nullopt);
    add(at(0, 5, 0), 0);
    add(at(4, 6, 1), 1);
    add(at(5, 9, 8), 2);
    EXPECT_EQ(bodySides(rig), (std::vector<BodySide>{M, M, M, M}));
}

TEST_F(BodySides, AreUnknownInARowOfBones) {
    add(at(0, 4, 0), std::nullopt);
    for (const double x : {1, 2, 3, -1, -2, -3}) add(at(x, 4, 0), 0);
    EXPECT_EQ(bodySides(rig), std::vector<BodySide>(7, M));
}

TEST_F(BodySides, AreUnknownInAChainThatIsHardlyBent) {
    add(at(0, 0, 0), std::nullopt);
    for (std::size_t i = 0; i < 15; ++i) add(at(400.0 * double(i), i % 2 ? 200 : 0, 0), i);
    EXPECT_EQ(bodySides(rig), std::vector<BodySide>(16, M));
}

TEST_F(BodySides, AreUnknownForJointsWithoutAPosition) {
    addBody();
    for (Joint& joint : rig.joints) joint.restWorld[3][0] = std::nan("");
    EXPECT_EQ(bodySides(rig), (std::vector<BodySide>{M, M, M, M}));
}

// More joints than are mirrored.
TEST_F(BodySides, AreFoundForManyJoints) {
    add(at(0, 0, 0), std::nullopt);
    for (int i = 1; i < 2000; ++i) {
        add(at(i, 100 * (i % 7), 0), 0);
        add(at(-i, 100 * (i % 7), 0), 0);
    }
    const std::vector<BodySide> sides = bodySides(rig);
    EXPECT_EQ(sides[3997], L);
    EXPECT_EQ(sides[3998], R);
}

}  // namespace
