// `tolvane run` with translation libraries that bring their process down, or print, in every way
// and at every stage: one line that says which library, how and when.
#include "tests/tools/Sanitized.h"
#include "tests/tools/TolvaneRun.h"

#include <filesystem>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using Json = nlohmann::ordered_json;

struct FailingStage {
    const char* asked;
    const char* word;
    const char* told;
    // Of the program, where the library goes down at this stage.
    int status;
};

const std::vector<FailingStage> kStages{
    {"loading", "loading", "while it is loaded", 2},
    {"creating", "loading", "while it is loaded", 2},
    {"names", "names", "while it is asked for its names", 1},
    {"ports", "ports", "while it is given port outPins", 1},
    {"reading", "evaluating", "while port inPins is evaluated in frame 1", 1},
    {"writing", "evaluating", "while port outPins is evaluated in frame 1", 1},
    {"releasing", "releasing", "while it is released", 1},
    {"unloading", "unloading", "while it is unloaded", 1},
};

struct Way {
    const char* asked;
    const char* told;
};

const std::vector<Way> kWaysDown{
    {"crashes", "crashes (segmentation fault)"},
    {"throws", "throws \"so much for that\""},
    {"throws-a-number", "throws something that is no exception"},
    {"terminates", "calls std::terminate"},
    {"aborts", "aborts"},
    {"exits", "ends the process with status 0"},
    {"exits-at-once", "ends the process with status 3"},
    {"kills-itself", "is ended by signal 9"},
};

const std::vector<Way> kWaysToPrint{
    {"prints", "prints \"Hello\""},
    {"prints-an-error", "prints \"Hello again\""},
    {"writes-a-line", "prints \"Hello\""},
};

std::string fault(const Way& way, const FailingStage& stage) {
    return std::string("TOLVANE_TEST_FAULT=") + way.asked + " " + stage.asked;
}

std::string line(const Way& way, const FailingStage& stage) {
    return std::string("tolvane: " MISBEHAVING_LIBRARY ": ") + way.told + " " + stage.told + "\n";
}

class TolvaneRunWithMisbehavingLibrary : public TolvaneRun,
                                         public testing::WithParamInterface<FailingStage> {
protected:
    TolvaneProcess run(const std::string& environment, std::vector<std::string> further = {}) {
        further.insert(further.begin(), {"run", rig(), "--plugin", MISBEHAVING_LIBRARY});
        return runTolvane(further, environment);
    }
};

INSTANTIATE_TEST_SUITE_P(EachStage, TolvaneRunWithMisbehavingLibrary, testing::ValuesIn(kStages),
                         [](const auto& stage) { return std::string(stage.param.asked); });

TEST_P(TolvaneRunWithMisbehavingLibrary, SaysHowItWentDownAndWhen) {
    const FailingStage& stage = GetParam();
    for (const Way& way : kWaysDown) {
        const TolvaneProcess process = run(fault(way, stage));
        EXPECT_EQ(process.errors, line(way, stage));
        EXPECT_EQ(process.status, stage.status) << process.errors;
        EXPECT_EQ(process.output, "");
    }
}

TEST_P(TolvaneRunWithMisbehavingLibrary, SaysSoInJson) {
    const FailingStage& stage = GetParam();
    const TolvaneProcess process = run(fault(kWaysDown[0], stage), {"--json"});
    EXPECT_EQ(process.errors, line(kWaysDown[0], stage));
    EXPECT_EQ(process.status, stage.status);
    const Json error = Json::parse(process.output)["error"];
    EXPECT_EQ(error["stage"], stage.word);
    EXPECT_EQ(error["file"], MISBEHAVING_LIBRARY);
    EXPECT_EQ("tolvane: " + error.value("what", "") + "\n", process.errors);
}

// All at once, for each takes its time.
TEST_F(TolvaneRunWithMisbehavingLibrary, GivesUpOneThatHangs) {
    const auto run = [this](const Way& way, const FailingStage& stage) {
        const TolvaneProcess process = runTolvane(
            {"run", folder.path("rig.bvh"), "--plugin", MISBEHAVING_LIBRARY, "--time-limit", "2"},
            fault(way, stage));
        EXPECT_EQ(process.errors, line(way, stage));
        EXPECT_EQ(process.status, stage.status);
    };
    rig();
    std::vector<std::thread> runs;
    for (const FailingStage& stage : kStages)
        runs.emplace_back(run, Way{"sleeps", "makes no progress for 2 s"}, stage);
    runs.emplace_back(run, Way{"computes", "makes no progress for 2 s"}, kStages[4]);
    for (std::thread& each : runs) each.join();
}

TEST_P(TolvaneRunWithMisbehavingLibrary, FailsOverAPrintAndReportsTheRest) {
    for (const Way& way : kWaysToPrint) {
        const TolvaneProcess process = run(fault(way, GetParam()));
        EXPECT_EQ(process.errors, line(way, GetParam()));
        EXPECT_EQ(process.status, 1);
        EXPECT_THAT(process.output, HasSubstr("FAILED"));
        EXPECT_THAT(process.output, HasSubstr("the library prints.\n"));
        EXPECT_THAT(process.output, Not(HasSubstr("Hello")));
    }
    const TolvaneProcess process = run(fault(kWaysToPrint[0], GetParam()), {"--json"});
    EXPECT_EQ(process.status, 1);
    const Json report = Json::parse(process.output);
    EXPECT_EQ(report["ok"], false);
    EXPECT_EQ(report["mismatches"], 0);
    EXPECT_EQ(report["error"]["stage"], GetParam().word);
}

TEST_F(TolvaneRunWithMisbehavingLibrary, FindsAPrintThatBeginsWithAZero) {
    const Way way{"prints-a-zero", "prints \"zero\""};
    const TolvaneProcess process = run(fault(way, kStages[5]));
    EXPECT_EQ(process.status, 1);
    EXPECT_EQ(process.errors, line(way, kStages[5]));
}

TEST_F(TolvaneRunWithMisbehavingLibrary, EndsOneThatPrintsForEver) {
    const Way way{"prints-for-ever", "writes more than 256 MiB"};
    const TolvaneProcess process = run(fault(way, kStages[5]));
    EXPECT_EQ(process.errors, line(way, kStages[5]));
    EXPECT_EQ(process.status, 1);
}

TEST_F(TolvaneRunWithMisbehavingLibrary, EndsOneThatTakesTooMuchMemory) {
    const Way way{"eats-memory", "takes more than 256 MiB of memory"};
    const TolvaneProcess process = run(fault(way, kStages[5]), {"--memory-limit", "0.25"});
    EXPECT_EQ(process.status, 1);
    if (!kIsSanitized) {
        EXPECT_EQ(process.errors, line(way, kStages[5]));
    }
}

// Whoever starts the program may do so, without knowing.
TEST_F(TolvaneRunWithMisbehavingLibrary, SaysHowItWentDownAlsoWhereEndsOfProcessesAreIgnored) {
    const std::string asked = fault(kWaysDown[0], kStages[5]);
    const std::size_t equals = asked.find('=');
    setenv(asked.substr(0, equals).c_str(), asked.substr(equals + 1).c_str(), 1);
    const TolvaneProcess process = run("--ignore-signal=CHLD");
    unsetenv(asked.substr(0, equals).c_str());
    EXPECT_EQ(process.errors, line(kWaysDown[0], kStages[5]));
    EXPECT_EQ(process.status, 1);
}

// Somebody has asked for that print by the variable that the plugin obeys.
TEST_F(TolvaneRun, PassesOnTheVersionThatThePluginIsAskedFor) {
    const TolvaneProcess process = runTolvane({"run", rig()}, "QUELMAR_DUMP_VERSION_INFO=1");
    EXPECT_EQ(process.status, 0);
    EXPECT_THAT(process.errors, testing::MatchesRegex(" *TolvanePlugin: [^\n]+\n"));
}

// ---- Files that are no libraries ----

class TolvaneRunWithoutLibrary : public TolvaneRun {
protected:
    // The one line, without the name of the file.
    std::string refusal(const std::string& plugin) {
        const TolvaneProcess process = runTolvane({"run", rig(), "--plugin", plugin});
        EXPECT_EQ(process.status, 2);
        EXPECT_EQ(process.output, "");
        const std::string start = "tolvane: " + plugin + ": ";
        EXPECT_THAT(process.errors, testing::StartsWith(start));
        EXPECT_EQ(process.errors.find('\n'), process.errors.size() - 1);
        return process.errors.substr(std::min(start.size(), process.errors.size()));
    }
};

TEST_F(TolvaneRunWithoutLibrary, RefusesWhatWouldBlockOrNeverEnd) {
    ASSERT_EQ(mkfifo(folder.path("fifo.so").c_str(), 0600), 0);
    EXPECT_EQ(refusal(folder.path("fifo.so")), "is not a regular file\n");
    EXPECT_EQ(refusal("/dev/zero"), "is not a regular file\n");
    EXPECT_EQ(refusal(folder.path("")), "is a folder, not a file\n");
    EXPECT_EQ(refusal(folder.write("empty.so", "")), "is empty\n");
}

TEST_F(TolvaneRunWithoutLibrary, RefusesALibraryThatIsCutOff) {
    const std::string whole = readFile(PLUGIN);
    for (const std::size_t lost : {std::size_t{1}, whole.size() / 10, whole.size() / 2})
        EXPECT_EQ(refusal(folder.write("cut.so", whole.substr(0, whole.size() - lost))),
                  "cannot be loaded as a library: it is cut off\n");
    refusal(folder.write("cut.so", whole.substr(0, 40)));
}

}  // namespace
