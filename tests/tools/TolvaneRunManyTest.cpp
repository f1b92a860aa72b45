// `tolvane run` for several rigs and folders of rigs in one call.
#include "tests/tools/FittingLines.h"
#include "tests/tools/Terminal.h"
#include "tests/tools/TolvaneRun.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using testing::UnorderedElementsAre;
using Json = nlohmann::ordered_json;

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

class TolvaneRunMany : public TolvaneRun {
protected:
    // A folder with two whole rigs, and what is no rig.
    TolvaneRunMany() {
        fs::create_directories(folder.path("rigs/deep/er"));
        folder.write("rigs/b.bvh", sampleBvh());
        folder.write("rigs/deep/er/a.gltf", sampleGltf());
        folder.write("rigs/notes.md", "Remember the milk.\n");
        folder.write("rigs/no extension", sampleBvh());
    }

    std::string addBroken() { return folder.write("rigs/deep/broken.bvh", "HIERARCHY\n"); }

    std::string rigs = folder.path("rigs");
};

TEST_F(TolvaneRunMany, GivesEachRigOfAFolderARowAndSumsThemUp) {
    const TolvaneProcess process = runTolvane({"run", rigs, "--jobs", "1"});
    EXPECT_EQ(process.status, 0);
    EXPECT_EQ(process.errors, "");
    const auto lines = linesOf(process.output);
    ASSERT_EQ(lines.size(), 5U) << process.output;
    EXPECT_THAT(lines[0], testing::MatchesRegex("Verdict +Joints +Frames +Values .*File"));
    // In the order of their names.
    EXPECT_THAT(lines[1], testing::MatchesRegex("equal +5 +4 .* 0  .*/rigs/b.bvh"));
    EXPECT_THAT(lines[2], testing::MatchesRegex("equal +2 +31 .* 0  .*/rigs/deep/er/a.gltf"));
    EXPECT_EQ(lines[4], "2 rigs: all came back as they went in.");
}

TEST_F(TolvaneRunMany, CutsLongPathsToTheirEndsUnlessAskedOtherwise) {
    const std::string wide = "左腕左腕左腕左腕左腕左腕左腕左腕左腕", name(100, 'a');
    for (const std::string& deep : {wide, name}) {
        fs::create_directories(rigs + "/" + deep);
        folder.write("rigs/" + deep + "/c.bvh", sampleBvh());
        folder.write("rigs/" + deep + "/d.bvh", "HIERARCHY\n");
    }
    const std::string output = runTolvane({"run", rigs}).output;
    EXPECT_THAT(output, HasSubstr("  ...aaaa"));
    EXPECT_THAT(output, HasSubstr("腕/c.bvh\n"));
    expectLinesThatFit(output);
    const std::string whole = runTolvane({"run", rigs, "--verbose"}).output;
    for (const std::string& deep : {wide, name})
        for (const char* file : {"/c.bvh", "/d.bvh"})
            EXPECT_THAT(whole, HasSubstr("  " + rigs + "/" + deep + file + "\n"));
}

TEST_F(TolvaneRunMany, GoesOnBehindARigThatCannotBeRead) {
    const std::string broken = addBroken();
    const TolvaneProcess process = runTolvane({"run", broken, folder.path("none.bvh"), rigs});
    EXPECT_EQ(process.status, 2);
    EXPECT_THAT(process.output, HasSubstr("\nnot run "));
    EXPECT_THAT(process.output, EndsWith("\n5 rigs: 2 came back as they went in, 3 could not be "
                                         "run.\n"));
    const auto errors = linesOf(process.errors);
    EXPECT_THAT(errors, UnorderedElementsAre(
                            StartsWith("tolvane: " + broken + ": "),
                            StartsWith("tolvane: " + broken + ": "),
                            "tolvane: " + folder.path("none.bvh") + ": there is no such file"));
}

TEST_F(TolvaneRunMany, GoesOnBehindAFolderWithoutRigs) {
    const std::string empty = folder.path("empty"), line = empty +
                                                           ": holds no file with the name"
                                                           " of a rig";
    fs::create_directory(empty);
    const TolvaneProcess process = runTolvane({"run", empty, rigs});
    EXPECT_EQ(process.status, 2);
    EXPECT_EQ(process.errors, "tolvane: " + line + "\n");
    EXPECT_THAT(linesOf(process.output)[1], testing::MatchesRegex("not run( +-){4}  .*"));
    EXPECT_THAT(process.output, EndsWith("\n3 rigs: 2 came back as they went in, 1 could not be "
                                         "run.\n"));

    const TolvaneProcess json = runTolvane({"run", empty, "--json"});
    EXPECT_EQ(json.status, 2);
    EXPECT_EQ(Json::parse(json.output),
              (Json{{"file", empty},
                    {"error", {{"stage", "reading"}, {"what", line}, {"file", empty}}}}));
}

TEST_F(TolvaneRunMany, MarksThoseWithoutASkeleton) {
    folder.write("rigs/point.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    const auto lines = linesOf(runTolvane({"run", rigs, "--jobs", "1"}).output);
    ASSERT_EQ(lines.size(), 7U);
    EXPECT_THAT(lines[2], testing::MatchesRegex("equal +2 +31 .*"));
    EXPECT_THAT(lines[3], testing::MatchesRegex("equal +[0-9]+\\* +1 .*point.obj"));
    EXPECT_EQ(lines[6], "* no skeleton: every node taken for a joint");
}

// Of two, with the first done.
TEST_F(TolvaneRunMany, ShowsTheProgressOfAllInATerminal) {
    const std::string printed = printedInTerminal(80, {"run", rigs, "--jobs", "1"});
    EXPECT_THAT(printed, HasSubstr("/b.bvh\r\n\r\033[K[" + std::string(20, '=') +
                                   std::string(20, ' ') + "] 50 %\r"));
    EXPECT_THAT(printed, Not(HasSubstr("%\r\n")));
}

// The other one sleeps in its second frame, which the quick one has not.
TEST_F(TolvaneRunMany, PrintsALineOfJsonAsSoonAsItsRigIsDone) {
    const std::string quick = folder.write("quick.bvh", stillBvh());
    const std::string command =
        "echo $$; TOLVANE_TEST_FAULT='sleeps writing' exec " + quoted(TOLVANE) +
        " run --json --jobs 2 --time-limit 5 --plugin " MISBEHAVING_LIBRARY " " + quoted(rig()) +
        " " + quoted(quick);
    FILE* const pipe = popen(command.c_str(), "r");
    int process = 0;
    ASSERT_EQ(std::fscanf(pipe, "%d\n", &process), 1);
    std::string line;
    for (int byte; (byte = std::fgetc(pipe)) != EOF && byte != '\n';)
        line += static_cast<char>(byte);
    kill(process, SIGTERM);
    EXPECT_EQ(Json::parse(line)["file"], quick);
    EXPECT_EQ(std::fgetc(pipe), EOF);
    const int status = pclose(pipe);
    EXPECT_TRUE(WIFSIGNALED(status)) << "it has gone on";
}

TEST_F(TolvaneRunMany, PrintsOnlyWhatFailsWhereItIsToBeQuiet) {
    const TolvaneProcess quiet = runTolvane({"run", rigs, "-q"});
    EXPECT_EQ(quiet.status, 0);
    EXPECT_EQ(quiet.output + quiet.errors, "");
    addBroken();
    const auto lines = linesOf(runTolvane({"run", rigs, "-q"}).output);
    EXPECT_THAT(lines, ElementsAre(StartsWith("not run "), "",
                                   "3 rigs: 2 came back as they went in, 1 could not be run."));
}

TEST_F(TolvaneRunMany, PrintsAJsonObjectInALineForEachRig) {
    const std::string broken = addBroken();
    const TolvaneProcess process = runTolvane({"run", rigs, "--json"});
    EXPECT_EQ(process.status, 2);
    std::vector<std::string> files;
    for (const std::string& line : linesOf(process.output)) {
        const Json object = Json::parse(line);
        EXPECT_EQ(object.begin().key(), "file");
        files.push_back(object["file"]);
        if (object["file"] != broken) {
            EXPECT_EQ(object["ok"], true);
            EXPECT_EQ(object["rig"]["file"], object["file"]);
        } else {
            EXPECT_EQ(object["error"]["stage"], "reading");
            EXPECT_EQ(object["error"]["file"], broken);
        }
    }
    EXPECT_THAT(files, UnorderedElementsAre(rigs + "/b.bvh", broken, rigs + "/deep/er/a.gltf"));
}

TEST_F(TolvaneRunMany, FailsWithThoseThatFail) {
    const std::vector<std::string> arguments{"run", rigs, "--plugin", FAULTY_LIBRARY};
    const TolvaneProcess process = runTolvane(arguments, "TOLVANE_TEST_FAULT=writes nothing");
    EXPECT_EQ(process.status, 1);
    EXPECT_EQ(process.errors, "");
    EXPECT_THAT(process.output, HasSubstr("\nFAILED "));
    EXPECT_THAT(process.output, EndsWith(": 0 came back as they went in, 2 FAILED.\n"));
    addBroken();
    EXPECT_EQ(runTolvane(arguments, "TOLVANE_TEST_FAULT=writes nothing").status, 2);
}

TEST_F(TolvaneRunMany, SaysWithWhichRigALibraryCrashes) {
    const TolvaneProcess process = runTolvane({"run", rigs, "--plugin", MISBEHAVING_LIBRARY},
                                              "TOLVANE_TEST_FAULT=crashes writing");
    EXPECT_EQ(process.status, 1);
    const std::string end = ": " MISBEHAVING_LIBRARY
                            ": crashes (segmentation fault) while port "
                            "outPins is evaluated in frame 1";
    EXPECT_THAT(linesOf(process.errors),
                UnorderedElementsAre("tolvane: " + rigs + "/b.bvh" + end,
                                     "tolvane: " + rigs + "/deep/er/a.gltf" + end));
}

TEST_F(TolvaneRunMany, PassesItsOptionsOnToEachRig) {
    const TolvaneProcess process =
        runTolvane({"run", "--json", "--frames", "1:1", "--churn", rigs, rig()});
    EXPECT_EQ(process.status, 0);
    const auto lines = linesOf(process.output);
    EXPECT_EQ(lines.size(), 3U);
    for (const std::string& line : lines) EXPECT_EQ(Json::parse(line)["evaluated"], 4);
}

TEST_F(TolvaneRunMany, TreatsASingleRigTheSameWayWhereJobsAreAskedFor) {
    const TolvaneProcess process = runTolvane({"run", rig(), "--json", "--jobs", "1"});
    EXPECT_EQ(process.status, 0);
    EXPECT_THAT(linesOf(process.output), ElementsAre(StartsWith("{\"file\":\"" + rig() + "\"")));
}

TEST_F(TolvaneRunMany, PassesOnTheVersionThatThePluginIsAskedForOfEachRig) {
    for (const char* option : {"--verbose", "-q", "--json"}) {
        const TolvaneProcess process =
            runTolvane({"run", rigs, option}, "QUELMAR_DUMP_VERSION_INFO=1");
        EXPECT_EQ(process.status, 0);
        EXPECT_THAT(process.errors, testing::MatchesRegex("( *TolvanePlugin: [^\n]+\n){2}"));
    }
}

TEST_F(TolvaneRunMany, RefusesAtOnceWhatMakesNoSenseForAnyRig) {
    const auto expectRefusal = [](const std::vector<std::string>& arguments,
                                  const std::string& line) {
        const TolvaneProcess process = runTolvane(arguments);
        EXPECT_EQ(process.status, 2);
        EXPECT_EQ(process.output, "");
        EXPECT_EQ(process.errors, "tolvane: " + line + "\n");
    };
    const std::string picture = folder.path("out.svg");
    for (const char* option : {"--svg", "--html"})
        expectRefusal({"run", rigs, option, picture},
                      "--svg and --html are for one rig, and several may be meant");
    expectRefusal({"run", rigs, "--plugin", "none.so"}, "none.so: there is no such file");
    expectRefusal({"run", rigs, "--frames", "3:1"}, "--frames 3:1: ends before it begins");
}

// This machine stands for all.
TEST_F(TolvaneRunMany, IsSpreadOverMachinesByTheLineInTheReadme) {
    const auto lines = linesOf(readFile(README));
    const auto line = std::find_if(lines.begin(), lines.end(), [](const std::string& each) {
        return each.find(" | parallel ") != std::string::npos;
    });
    ASSERT_NE(line, lines.end());
    addBroken();
    folder.write("machines", ":\n");
    const std::string programs = fs::path(TOLVANE).parent_path().string();
    const std::string command = "export HOME=" + quoted(folder.path("")) +
                                " PATH=" + quoted(programs) + ":$PATH; cd && exec 2>errors; " +
                                *line;
    // GNU parallel ends with the number of runs that failed.
    const int status = std::system(command.c_str());
    const std::string errors = readFile(folder.path("errors"));
    EXPECT_EQ(WEXITSTATUS(status), 1) << errors;
    EXPECT_THAT(errors, HasSubstr("tolvane: rigs/deep/broken.bvh: "));
    std::vector<std::string> files;
    for (const std::string& each : linesOf(readFile(folder.path("results.jsonl"))))
        files.push_back(Json::parse(each)["file"]);
    EXPECT_THAT(files, UnorderedElementsAre("rigs/b.bvh", "rigs/deep/broken.bvh"));
}

}  // namespace
