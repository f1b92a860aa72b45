#include "tests/support/TemporaryFolder.h"
#include "tests/support/TolvaneProcess.h"
#include "tests/tools/DrawnRig.h"
#include "tools/support/Columns.h"
#include "tools/view/Picture.h"

#include <cmath>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::HasSubstr;
using testing::Not;

class Picture : public testing::Test, protected DrawnRig {
protected:
    Picture() {
        rig.file = "folder/me & you.bvh";
        rig.framesPerSecond = 10;
        rig.frameCount = 30;
        addBody();
    }

    static int count(const std::string& text, const std::string& part) {
        int found = 0;
        for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
            ++found;
        return found;
    }

    std::string draw() const { return drawPicture(rig, {pose}); }

    static void expectFiniteNumbers(const std::string& svg) {
        EXPECT_THAT(svg, Not(HasSubstr("nan")));
        EXPECT_THAT(svg, Not(HasSubstr("inf")));
    }

    static void expectWellFormed(const std::string& svg) {
        expectFiniteNumbers(svg);
        const TemporaryFolder folder;
        const std::string command =
            "python3 -c 'import sys, xml.dom.minidom as d; d.parse(sys.argv[1])' " +
            quoted(folder.write("picture.svg", svg));
        EXPECT_EQ(std::system(command.c_str()), 0) << svg;
    }
};

TEST_F(Picture, ShowsEachSnapshotInBothViews) {
    Snapshot later = pose;
    later.frame = 25;
    const std::string svg = drawPicture(rig, {pose, later});
    EXPECT_THAT(svg, testing::StartsWith("<svg "));
    EXPECT_THAT(svg, testing::EndsWith("</svg>\n"));
    expectWellFormed(svg);
    for (const char* label :
         {">front<", ">side<", ">frame 7<", ">0.70 s<", ">frame 25<", ">2.50 s<"})
        EXPECT_THAT(svg, HasSubstr(label));
    // Four joints, of which three have a bone, in two snapshots and two views.
    EXPECT_EQ(count(svg, "h0"), 4 * 2 * 2);
    EXPECT_EQ(count(svg, "L"), 3 * 2 * 2);
}

TEST_F(Picture, DrawsBonesWhereTheSnapshotHasThem) {
    const std::string before = draw();
    pose.worlds[3] = at(1, 8, 0);
    EXPECT_NE(draw(), before);
}

// From the hips one bone leads to each side. The first row shows them from the front, where the
// left of the body is at the right.
TEST_F(Picture, ColoursLimbsByTheirSideAndNamesTheColours) {
    const std::string svg = draw();
    const auto pathOf = [&](const std::string& side, const std::string& width) {
        const std::size_t label = svg.find("\">● " + side + "<");
        if (label == std::string::npos) return std::string();
        const std::string colour = svg.substr(label - 7, 7);
        const std::string path =
            "<path stroke=\"" + colour + "\" stroke-width=\"" + width + "\" d=\"";
        const std::size_t begin = svg.find(path) + path.size();
        return svg.substr(begin, svg.find('"', begin) - begin);
    };
    const auto endOfBone = [&](const std::string& side) {
        const std::string bone = pathOf(side, "2.5");
        const std::string end = bone.substr(bone.find('L') + 1);
        EXPECT_THAT(pathOf(side, "5"), testing::EndsWith("M" + end + "h0"));
        return end.empty() ? std::nan("") : std::stod(end);
    };
    EXPECT_GT(endOfBone("left"), endOfBone("middle"));
    EXPECT_LT(endOfBone("right"), endOfBone("middle"));
    rig.joints.resize(1);
    pose.worlds.resize(1);
    EXPECT_THAT(draw(), Not(HasSubstr("●"))) << "without sides";
}

TEST_F(Picture, NamesTheFileTheAnimationAndItsRate) {
    EXPECT_THAT(draw(), HasSubstr("me &amp; you.bvh"));
    EXPECT_THAT(draw(), Not(HasSubstr("folder")));
    EXPECT_THAT(draw(), HasSubstr(">30 frames at 10 per second<"));
    rig.animation = "歩く <1>";
    rig.framesPerSecond = 23.976;
    EXPECT_THAT(draw(), HasSubstr(">歩く &lt;1&gt;</tspan> · 30 frames at 23.976 per second<"));
    rig.frameCount = 1;
    EXPECT_THAT(draw(), HasSubstr(">a single frame<"));
}

// The head has room for so much beside the legend, at ten pixels a column.
TEST_F(Picture, CutsNamesToTheRoomThatTheyHaveHoweverWideTheyAre) {
    add(at(1e6, 0, 0), 0);
    for (const std::string unit : {"a", "腕", "ä"}) {
        std::string name;
        for (int i = 0; i < 120; ++i) name += unit;
        rig.file = rig.animation = name;
        rig.joints[4].name = name;
        const std::string svg = draw();
        ASSERT_THAT(svg, HasSubstr("viewBox=\"0 0 520.0 "));
        std::size_t texts = 0;
        for (auto begin = svg.find("isolate\">"); begin != std::string::npos;
             begin = svg.find("isolate\">", begin)) {
            begin += 9;
            const std::string shown = svg.substr(begin, svg.find('<', begin) - begin);
            EXPECT_THAT(shown, testing::EndsWith(unit + "…"));
            EXPECT_LE(columnsOf(shown), ++texts < 3 ? 22U + 1 : 24U + 1) << shown;
        }
        EXPECT_EQ(texts, 3U) << "the file, the animation, a joint";
    }
}

TEST_F(Picture, IsWellFormedWhateverTheNames) {
    rig.file = rig.animation = "\xff\x01</text>]]>&#0;\u202e\u0628";
    add(at(1e6, 0, 0), 0, "<\xc3(\"");
    expectWellFormed(draw());
}

TEST_F(Picture, HasAScaleBarWithTheUnitsOfTheFile) {
    EXPECT_THAT(draw(), HasSubstr(">2 units<"));
    rig.metresPerUnit = 0.1;
    EXPECT_THAT(draw(), HasSubstr(">20 cm<"));
}

TEST_F(Picture, KeepsItsScaleWhateverIsFarOffAndNamesIt) {
    const std::string svg = draw();
    add(at(1000, 4, 0), 0, "Marker");
    EXPECT_EQ(count(draw(), "h0"), count(svg, "h0"));
    EXPECT_THAT(draw(), HasSubstr(">2 units<"));
    EXPECT_THAT(draw(), HasSubstr(">Marker</tspan>"));
}

TEST_F(Picture, HasABackgroundOfItsOwn) { EXPECT_THAT(draw(), HasSubstr("fill=\"#ffffff\"")); }

TEST_F(Picture, ShowsAFigureThatLiesFromAbove) {
    pose.worlds = {at(0, 1, 4), at(3, 1.5, 4), at(-3, 0.5, 4), at(0, 1, 13)};
    EXPECT_THAT(draw(), HasSubstr(">above<"));
    EXPECT_THAT(draw(), Not(HasSubstr(">front<")));
}

TEST_F(Picture, DrawsASingleJointAsADotWithAxes) {
    rig.joints.resize(1);
    pose.worlds.resize(1);
    const std::string svg = draw();
    EXPECT_EQ(count(svg, "h0"), 2);
    for (const char* axis : {">x<", ">y<", ">z<"}) EXPECT_THAT(svg, HasSubstr(axis));
    EXPECT_THAT(svg, Not(HasSubstr("unit"))) << "there is no length that it could show";
    expectWellFormed(svg);
}

TEST_F(Picture, HasFiniteNumbersWhateverThoseOfTheRig) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double value : {std::nan(""), infinity, -infinity, 1e308, -1e308, 1e99, 5e-324}) {
        for (std::size_t joints = 1; joints <= 4; ++joints) {
            DrawnRig drawn;
            drawn.addBody();
            for (std::size_t i = 0; i < joints; ++i)
                for (unsigned j = 0; j < 16; ++j)
                    drawn.pose.worlds[i][j / 4][j % 4] =
                        drawn.rig.joints[i].restWorld[j / 4][j % 4] = j % 3 == 0 ? -value : value;
            expectFiniteNumbers(drawPicture(drawn.rig, {drawn.pose}));
        }
    }
    expectWellFormed(drawPicture(rig, {}));
}

TEST_F(Picture, DrawsOnlyTheJointsThatTheSnapshotHas) {
    pose.worlds.resize(2);
    EXPECT_EQ(count(draw(), "h0"), 2 * 2);
}

}  // namespace
