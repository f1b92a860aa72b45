#include "tools/node/Recording.h"

#include <cmath>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::ElementsAre;
using testing::IsEmpty;

class Recording : public testing::Test {
protected:
    // Runs through all evaluations. In each, joint i stands at (x, i, 0), x being the frame's
    // number.
    Tolvane::Tools::Recording record(std::size_t joints, std::size_t evaluations,
                                     std::size_t whole = 1) {
        Recorder recorder(joints, evaluations, whole);
        std::vector<PosedJoint> posed(joints);
        for (std::size_t e = 0; e < evaluations; ++e) {
            std::vector<VMatrix> worlds;
            for (std::size_t i = 0; i < joints; ++i) {
                VMatrix& world = posed[i].matrices[kWorld];
                world[3][0] = x + static_cast<double>(e);
                world[3][1] = static_cast<double>(i);
                worlds.push_back(world);
            }
            recorder.begin(e, e + 100);
            change(e, worlds, recorder);
            if (recorder.wantsPositions()) recorder.add(posed, worlds);
        }
        return recorder.take();
    }

    static std::vector<std::size_t> evaluationsOf(const Tolvane::Tools::Recording& recording) {
        std::vector<std::size_t> evaluations;
        for (const RecordedFrame& frame : recording.frames) evaluations.push_back(frame.evaluation);
        return evaluations;
    }

    static Mismatch mismatch(const std::string& what) { return {"port", "", {}, what, {}, {}, {}}; }

    double x = 0;
    // What comes back other than it went in.
    std::function<void(std::size_t evaluation, std::vector<VMatrix>& worlds, Recorder& recorder)>
        change = [](auto, auto&, auto&) {};
};

TEST_F(Recording, KeepsWhereTheJointsWereInEachFrame) {
    const auto recording = record(2, 3);
    EXPECT_EQ(evaluationsOf(recording), (std::vector<std::size_t>{0, 1, 2}));
    EXPECT_EQ(recording.frames[2].frame, 102U);
    EXPECT_THAT(recording.frames[2].wentIn, ElementsAre(2, 0, 0, 2, 1, 0));
    EXPECT_THAT(recording.frames[2].cameBack, IsEmpty()) << "it is the same";
    EXPECT_TRUE(recording.hasCameBack);
    EXPECT_THAT(recording.differences, IsEmpty());
}

TEST_F(Recording, KeepsItsPrecisionFarFromZero) {
    x = 1e9;
    const auto recording = record(1, 2);
    EXPECT_EQ(recording.origin[0], 1e9);
    EXPECT_THAT(recording.frames[1].wentIn, ElementsAre(1, 0, 0));
}

TEST_F(Recording, KeepsWhatCameBackElsewhereOrNotAtAll) {
    change = [](std::size_t evaluation, std::vector<VMatrix>& worlds, Recorder&) {
        if (evaluation == 0) worlds[1][3][2] = 5;
        if (evaluation == 1) worlds.resize(1);
        if (evaluation == 2) worlds[0][3][0] = HUGE_VAL;
        if (evaluation == 3) worlds.resize(9);
    };
    const auto recording = record(2, 4);
    EXPECT_THAT(recording.frames[0].cameBack, ElementsAre(0, 0, 0, 0, 1, 5));
    EXPECT_TRUE(std::isnan(recording.frames[1].cameBack[3]));
    EXPECT_TRUE(std::isnan(recording.frames[2].cameBack[0]));
    EXPECT_THAT(recording.frames[3].cameBack, IsEmpty());
}

TEST_F(Recording, ListsTheJointsThatDifferWithTheirFrames) {
    change = [](std::size_t evaluation, std::vector<VMatrix>&, Recorder& recorder) {
        if (evaluation >= 2 && evaluation < 5) recorder.add(mismatch("first"), 1);
        if (evaluation >= 2 && evaluation < 5) recorder.add(mismatch("second"), 1);
        if (evaluation == 7) recorder.add(mismatch("third"), 1);
        if (evaluation == 7) recorder.add(mismatch("fourth"), 0);
        if (evaluation == 8) recorder.add(mismatch("fifth"), std::nullopt);
    };
    const auto recording = record(3, 9);
    ASSERT_EQ(recording.differences.size(), 3U);
    const JointDifferences& second = recording.differences[1];
    EXPECT_EQ(second.joint, 1U);
    EXPECT_EQ(second.evaluations, 4U);
    EXPECT_EQ(second.first.what, "first");
    ASSERT_EQ(second.rows.size(), 2U);
    EXPECT_EQ(second.rows[0].first, 102U);
    EXPECT_EQ(second.rows[0].last, 104U);
    EXPECT_EQ(second.rows[1].first, 107U);
    EXPECT_EQ(recording.differences[0].joint, 0U);
    EXPECT_EQ(recording.differences[2].joint, std::nullopt);
    EXPECT_THAT(recording.frames[3].differing, ElementsAre(1));
    EXPECT_THAT(recording.frames[7].differing, ElementsAre(0, 1));
    EXPECT_THAT(recording.frames[8].differing, IsEmpty());
}

TEST_F(Recording, ThinsLongRunsAndKeepsTheFirstTheLastAndWhatDiffers) {
    change = [](std::size_t evaluation, std::vector<VMatrix>&, Recorder& recorder) {
        if (evaluation == 10'000) recorder.add(mismatch("differs"), 5);
    };
    const auto recording = record(15, 100'000);
    EXPECT_EQ(recording.step, 10U);
    EXPECT_EQ(recording.frames.size(), 10'000U + 1);
    EXPECT_EQ(recording.frames.front().evaluation, 0U);
    EXPECT_EQ(recording.frames.back().evaluation, 99'999U);
    change = [](std::size_t evaluation, std::vector<VMatrix>&, Recorder& recorder) {
        if (evaluation == 10'003) recorder.add(mismatch("differs"), 5);
    };
    const auto between = record(15, 100'000);
    EXPECT_EQ(between.frames.size(), 10'000U + 2);
    EXPECT_EQ(between.frames[1001].evaluation, 10'003U);
    EXPECT_THAT(between.frames[1001].differing, ElementsAre(5));
}

TEST_F(Recording, StaysBoundedWhereEverythingDiffersForLong) {
    change = [](std::size_t evaluation, std::vector<VMatrix>& worlds, Recorder& recorder) {
        worlds[0][3][0] = 7;
        if (evaluation % 2 == 0) recorder.add(mismatch("differs"), 0);
    };
    const auto recording = record(15, 100'000);
    EXPECT_LE(recording.frames.size(), 2 * 10'000U + 1);
    EXPECT_EQ(recording.differences[0].evaluations, 50'000U);
    EXPECT_EQ(recording.differences[0].rows.size(), 20U);
}

TEST_F(Recording, KeepsTwoFramesOfTheLargestRig) {
    EXPECT_GE(record(200'000, 3).frames.size(), 2U);
}

TEST_F(Recording, KeepsEvaluationsThatTakeAllJoints) {
    EXPECT_EQ(evaluationsOf(record(2, 10, 4)), (std::vector<std::size_t>{0, 4, 8}));
}

}  // namespace
