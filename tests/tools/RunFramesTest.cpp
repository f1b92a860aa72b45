#include "tests/support/TemporaryFolder.h"
#include "tests/tools/SampleRigs.h"
#include "tools/node/RunFrames.h"
#include "tools/rig/LoadRig.h"

#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

class RunFrames : public testing::Test {
protected:
    RunResult runWith(const RunOptions& options, const RunListener& listener = {}) {
        return runFrames(rig, library.translation(), options, listener);
    }

    static std::vector<std::size_t> framesDrawn(const RunResult& result) {
        std::vector<std::size_t> frames;
        for (const Snapshot& snapshot : result.snapshots) frames.push_back(snapshot.frame);
        return frames;
    }

    TemporaryFolder folder;
    Rig rig = loadRig(folder.write("rig.bvh", sampleBvh()));
    std::size_t typeCount() {
        Pelmor::Array<Pelmor::String> names;
        library.translation().getSupportedTypeNames(names);
        return names.size();
    }
    TavrikGraph::Executor::TranslationLibrary library{PLUGIN};
};

TEST_F(RunFrames, EvaluatesEachFrameAndFindsAllEqual) {
    const RunResult result = runWith({});
    EXPECT_EQ(result.evaluated, 4U);
    EXPECT_EQ(result.types.size(), typeCount());
    EXPECT_GT(result.leavesCompared(), 0U);
    EXPECT_EQ(result.mismatches(), 0U);
    EXPECT_TRUE(result.ok());
}

TEST_F(RunFrames, TellsItsListenerOfItsPortsAndOfEachEvaluation) {
    std::vector<std::string> ports;
    std::vector<std::size_t> progress;
    runWith({}, {[&](const RoundTrip& roundTrip) { ports = roundTrip.portNames(); },
                 [&](std::size_t done, std::size_t total) {
                     progress.push_back(done);
                     EXPECT_EQ(total, 4U);
                 }});
    EXPECT_EQ(ports.size(), 2 * typeCount());
    EXPECT_THAT(ports, testing::Contains("inNamedTransforms"));
    EXPECT_THAT(ports, testing::Contains("outPinsArray"));
    EXPECT_EQ(progress, (std::vector<std::size_t>{1, 2, 3, 4}));
}

// The faulty library loses all pins after the first frame: the names and matrices of five joints.
TEST_F(RunFrames, KeepsTheFirstMismatchesAndTellsItsListenerOfEach) {
    setenv("TOLVANE_TEST_FAULT", "writes only once", 1);
    const TavrikGraph::Executor::TranslationLibrary faulty(FAULTY_LIBRARY);
    std::vector<std::string> told;
    RunListener listener;
    const auto inWords = [](const FoundMismatch& found) {
        return std::to_string(found.frame.value()) + " " + placeOf(found.mismatch);
    };
    listener.mismatch = [&](const FoundMismatch& found) {
        EXPECT_EQ(found.typeName, "Rigging::Module::Pins");
        told.push_back(inWords(found));
    };
    const RunResult result = runFrames(rig, faulty.translation(), {}, listener);
    const TavrikGraph::Executor::TranslationLibrary another(FAULTY_LIBRARY);
    const RunResult unheard = runFrames(rig, another.translation(), {});
    unsetenv("TOLVANE_TEST_FAULT");

    ASSERT_EQ(told.size(), 3U * 10);
    EXPECT_EQ(result.mismatches(), told.size());
    EXPECT_EQ(told[1], "1 outPins.names[1]");
    EXPECT_EQ(told[29], "3 outPins.matrices[4]");
    ASSERT_EQ(result.firstMismatches.size(), kMostMismatchesKept);
    for (std::size_t i = 0; i < kMostMismatchesKept; ++i)
        EXPECT_EQ(inWords(result.firstMismatches[i]), told[i]);
    EXPECT_EQ(result.firstMismatches[7].mismatch.indices, std::vector<unsigned>{2});
    EXPECT_EQ(unheard.mismatches(), told.size());
    EXPECT_EQ(unheard.firstMismatches.size(), kMostMismatchesKept);
}

TEST_F(RunFrames, KeepsMismatchesOfPortsWithoutAFrame) {
    setenv("TOLVANE_TEST_FAULT", "adds no port", 1);
    const TavrikGraph::Executor::TranslationLibrary faulty(FAULTY_LIBRARY);
    const RunResult result = runFrames(rig, faulty.translation(), {});
    unsetenv("TOLVANE_TEST_FAULT");
    ASSERT_EQ(result.firstMismatches.size(), 1U);
    EXPECT_EQ(result.firstMismatches[0].frame, std::nullopt);
    EXPECT_EQ(placeOf(result.firstMismatches[0].mismatch), "outPins");
    EXPECT_EQ(result.firstMismatches[0].mismatch.what, "could not be added");
}

TEST_F(RunFrames, TakesSnapshotsOfWhatCameOutInTheirFrame) {
    RunOptions options;
    options.draw = true;
    options.frames = FrameRange{1, 3};
    const RunResult result = runWith(options);
    EXPECT_EQ(framesDrawn(result), (std::vector<std::size_t>{1, 2, 3}));
    for (const Snapshot& snapshot : result.snapshots) {
        ASSERT_EQ(snapshot.worlds.size(), 5U);
        EXPECT_EQ(snapshot.worlds[0][3][0], static_cast<double>(snapshot.frame));
        EXPECT_EQ(snapshot.worlds[3][3][1], 9);
    }
}

TEST_F(RunFrames, SpreadsSnapshotsOverManyFrames) {
    LoadOptions load;
    load.framesPerSecond = 1000;
    rig = loadRig(folder.path("rig.bvh"), load);
    RunOptions options;
    options.draw = true;
    EXPECT_EQ(framesDrawn(runWith(options)),
              (std::vector<std::size_t>{0, 42, 85, 128, 171, 214, 257, 300}));
}

TEST_F(RunFrames, TakesSnapshotsWithAllJointsUnderChurn) {
    RunOptions options;
    options.draw = true;
    options.churn = true;
    const RunResult result = runWith(options);
    ASSERT_EQ(result.snapshots.size(), 1U);
    EXPECT_EQ(result.snapshots[0].worlds.size(), 5U);
}

TEST_F(RunFrames, GoesThroughFewFramesAgainUnderChurn) {
    RunOptions options;
    options.churn = true;
    options.frames = FrameRange{2, 2};
    EXPECT_EQ(runWith(options).evaluated, 4U);
    options.frames = FrameRange{0, 2};
    EXPECT_EQ(runWith(options).evaluated, 4U);
    EXPECT_TRUE(runWith(options).ok());
}

TEST_F(RunFrames, EvaluatesAsOftenAsAsked) {
    RunOptions options;
    options.evaluations = 10;
    options.frames = FrameRange{1, 3};
    const RunResult result = runWith(options);
    EXPECT_EQ(result.evaluated, 10U);
    EXPECT_TRUE(result.ok());
    options.evaluations = 1;
    options.churn = true;
    EXPECT_EQ(runWith(options).evaluated, 1U);
}

TEST_F(RunFrames, GoesThroughTheFramesAgainForMoreEvaluations) {
    RunOptions options;
    options.evaluations = 5;
    options.frames = FrameRange{1, 3};
    options.draw = true;
    EXPECT_EQ(framesDrawn(runWith(options)), (std::vector<std::size_t>{1, 2, 3, 1, 2}));
}

}  // namespace
