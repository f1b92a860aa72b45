#include "tests/support/TemporaryFolder.h"
#include "tests/tools/SampleRigs.h"
#include "tools/node/RigFrame.h"
#include "tools/rig/LoadAnimation.h"
#include "tools/support/Error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::HasSubstr;
using testing::StartsWith;

class LoadAnimation : public testing::Test {
protected:
    std::string bvh() { return folder.write("rig.bvh", sampleBvh()); }
    std::string gltf() { return folder.write("rig.gltf", sampleGltf()); }

    TemporaryFolder folder;
};

double tipsX(const Rig& rig, std::size_t frame) {
    RigFrame pose(rig);
    pose.pose(frame);
    return pose.joints()[1].matrices[kLocal][3][0];
}

TEST_F(LoadAnimation, SamplesABvhAtItsOwnRate) {
    const Rig rig = loadRig(bvh());
    EXPECT_EQ(rig.framesPerSecond, 10);
    EXPECT_EQ(rig.frameCount, 4U);
    EXPECT_EQ(rig.ticksPerFrame, 1);
}

TEST_F(LoadAnimation, RoundsARateThatIsAlmostWhole) {
    std::string text = sampleBvh();
    text.replace(text.find("Frame Time: 0.1"), 15, "Frame Time: 0.0083333");
    EXPECT_EQ(loadRig(folder.write("rig.bvh", text)).framesPerSecond, 120);
}

TEST_F(LoadAnimation, KeepsARateThatIsFarFromAnyUsualOne) {
    for (const auto& [length, rate] : {std::pair("1.0", 1.), {"2.0", 0.5}, {"0.0005", 2000.}}) {
        std::string text = sampleBvh();
        text.replace(text.find("Frame Time: 0.1"), 15, std::string("Frame Time: ") + length);
        const Rig rig = loadRig(folder.write("rig.bvh", text));
        EXPECT_EQ(rig.framesPerSecond, rate);
        EXPECT_EQ(rig.frameCount, 4U);
    }
}

TEST_F(LoadAnimation, KeepsARateThatIsNotWhole) {
    std::string text = sampleBvh();
    text.replace(text.find("Frame Time: 0.1"), 15, "Frame Time: 0.0333667");
    EXPECT_NEAR(loadRig(folder.write("rig.bvh", text)).framesPerSecond, 29.97, 0.001);
}

// The modes are: a rate of its own, which is not there, and three that the reader does not know.
TEST_F(LoadAnimation, TakesTheRateOfTheKeysWhereAnFbxHasNoneThatCanBeRead) {
    const Rig whole = loadRig(KNOWN_RIGS "/z_up.fbx");
    const std::string mode = R"("TimeMode", "enum", "", "",)";
    for (const char* unknown : {"14", "15", "16", "17"}) {
        std::string text = readFile(KNOWN_RIGS "/z_up.fbx");
        text.replace(text.find(mode + "6"), mode.size() + 1, mode + unknown);
        const Rig rig = loadRig(folder.write("rig.fbx", text));
        EXPECT_EQ(rig.framesPerSecond, 30) << unknown;
        ASSERT_EQ(rig.frameCount, whole.frameCount) << unknown;
        RigFrame pose(rig), expected(whole);
        pose.pose(15);
        expected.pose(15);
        for (unsigned column = 0; column < 4; ++column)
            EXPECT_NEAR(pose.joints()[0].matrices[kWorld][3][column],
                        expected.joints()[0].matrices[kWorld][3][column], 1e-4);
    }
}

TEST_F(LoadAnimation, SamplesAFileWithoutARateAtThirtyFramesPerSecond) {
    const Rig rig = loadRig(gltf());
    EXPECT_EQ(rig.framesPerSecond, 30);
    EXPECT_EQ(rig.frameCount, 31U);
    EXPECT_NEAR(tipsX(rig, 15), 0, 1e-4);
    EXPECT_NEAR(tipsX(rig, 30), 4, 1e-4);
}

TEST_F(LoadAnimation, SamplesTheSameMovementAtAnotherRate) {
    LoadOptions options;
    options.framesPerSecond = 8;
    const Rig rig = loadRig(gltf(), options);
    EXPECT_EQ(rig.framesPerSecond, 8);
    EXPECT_EQ(rig.frameCount, 9U);
    EXPECT_NEAR(tipsX(rig, 6), 2, 1e-4);
    EXPECT_NEAR(tipsX(rig, 8), 4, 1e-4);
}

TEST_F(LoadAnimation, SkipsEveryOtherFrameOfABvhAtHalfItsRate) {
    LoadOptions options;
    options.framesPerSecond = 5;
    const Rig rig = loadRig(bvh(), options);
    EXPECT_EQ(rig.frameCount, 2U);
    RigFrame pose(rig);
    pose.pose(1);
    EXPECT_EQ(pose.joints()[0].matrices[kLocal][3][0], 2);
}

TEST_F(LoadAnimation, FindsAnAnimationByItsName) {
    LoadOptions options;
    options.animation = "still";
    EXPECT_EQ(loadRig(gltf(), options).frameCount, 1U);
    EXPECT_EQ(loadRig(gltf(), options).animation, "still");
    options.animation = "move";
    EXPECT_EQ(loadRig(gltf(), options).frameCount, 31U);
    EXPECT_EQ(loadRig(gltf()).animation, "move");
}

TEST_F(LoadAnimation, RefusesAnUnknownAnimationAndNamesThoseOfTheFile) {
    LoadOptions options;
    options.animation = "run";
    try {
        loadRig(gltf(), options);
        FAIL() << "it was found";
    } catch (const Error& error) {
        EXPECT_THAT(error.what(), HasSubstr("\"run\""));
        EXPECT_THAT(error.what(), HasSubstr("only \"move\", \"still\""));
    }
}

TEST_F(LoadAnimation, RefusesAnAbsurdNumberOfFrames) {
    LoadOptions options;
    options.framesPerSecond = 1e12;
    EXPECT_THROW(loadRig(gltf(), options), Error);
}

TEST_F(LoadAnimation, RefusesKeysThatGoBackInTime) {
    std::string text = sampleGltf();
    // The times 0, 1/2, 1 become 1, 1/2, 1.
    text.replace(text.find("AAAAAAAAAD8AAIA/"), 16, "AACAPwAAAD8AAIA/");
    const std::string file = folder.write("rig.gltf", text);
    try {
        loadRig(file);
        FAIL() << "it was read";
    } catch (const Error& error) {
        EXPECT_THAT(error.what(), StartsWith(file + ": "));
        EXPECT_THAT(error.what(), HasSubstr("out of order"));
    }
}

TEST_F(LoadAnimation, RefusesFramesOfNoLength) {
    std::string text = sampleBvh();
    text.replace(text.find("Frame Time: 0.1"), 15, "Frame Time: 0.0");
    EXPECT_THROW(loadRig(folder.write("rig.bvh", text)), Error);
}

}  // namespace
