// How `tolvane run` refuses requests that it cannot carry out: with one line that names the culprit
// and the cause, status 2, and nothing left behind.

#include "tests/tools/Sanitized.h"
#include "tests/tools/TolvaneRun.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>

namespace {

using Json = nlohmann::ordered_json;
using testing::HasSubstr;
using testing::StartsWith;

void expectRefusal(const TolvaneProcess& process, const std::string& culprit,
                   const std::string& cause) {
    EXPECT_EQ(process.status, 2);
    EXPECT_THAT(process.errors, StartsWith("tolvane: "));
    EXPECT_THAT(process.errors, HasSubstr(culprit));
    EXPECT_THAT(process.errors, HasSubstr(cause));
    EXPECT_EQ(process.errors.find('\n'), process.errors.size() - 1) << process.errors;
}

// Makes each request both without and with --json. The culprit is a file, unless the stage is that
// of usage.
void expectRefusal(std::vector<std::string> arguments, const std::string& culprit,
                   const std::string& cause, const std::string& stage = "reading") {
    const TolvaneProcess plain = runTolvane(arguments);
    expectRefusal(plain, culprit, cause);
    EXPECT_EQ(plain.output, "");

    arguments.emplace_back("--json");
    const TolvaneProcess process = runTolvane(arguments);
    expectRefusal(process, culprit, cause);
    const Json report = Json::parse(process.output);
    EXPECT_EQ(report.size(), 1U);
    EXPECT_EQ("tolvane: " + report["error"].value("what", "") + "\n", process.errors);
    EXPECT_EQ(report["error"]["stage"], stage);
    EXPECT_EQ(report["error"]["file"], stage == "usage" ? Json() : Json(culprit));
}

TEST_F(TolvaneRun, RefusesAnOptionWithoutItsValue) {
    for (const char* option :
         {"--frames", "--fps", "--svg", "--html", "--plugin", "--animation", "--types"}) {
        const TolvaneProcess process = runTolvane({"run", option});
        EXPECT_EQ(process.status, 2);
        EXPECT_EQ(process.output, "");
        EXPECT_THAT(process.errors, HasSubstr(option));
    }
}

TEST_F(TolvaneRun, RefusesADevice) {
    expectRefusal({"run", "/dev/null"}, "/dev/null", "is not a regular file");
}

TEST_F(TolvaneRun, SaysWhyAFileMayNotBeLookedAt) {
    std::filesystem::create_symlink("round.bvh", folder.path("round.bvh"));
    expectRefusal({"run", folder.path("round.bvh")}, folder.path("round.bvh"),
                  "cannot be read: Too many levels of symbolic links");
    const std::string longName = folder.path(std::string(300, 'a'));
    expectRefusal({"run", longName}, longName, "cannot be read: File name too long");
}

TEST_F(TolvaneRun, RefusesATruncatedRig) {
    const std::string file =
        folder.write("cut.bvh", sampleBvh().substr(0, sampleBvh().size() - 20));
    expectRefusal({"run", file}, file, "cannot be read");
}

TEST_F(TolvaneRun, RefusesACorruptedRig) {
    std::string text = sampleGltf();
    text.replace(text.find("base64,") + 20, 4, "\x80\x81!?");
    const std::string file = folder.write("rig.gltf", text);
    expectRefusal({"run", file}, file, "cannot be read");
}

TEST_F(TolvaneRun, RefusesAFileThatNestsTooDeepForItsReader) {
    std::string text = "HIERARCHY\nROOT a\n{\nOFFSET 0 0 0\nCHANNELS 0\n";
    for (int i = 0; i < 200'000; ++i) text += "JOINT a\n{\nOFFSET 0 0 0\nCHANNELS 0\n";
    const std::string file = folder.write("deep.bvh", text);
    expectRefusal({"run", file}, file, "");
}

TEST_F(TolvaneRun, RefusesASmallFileThatTakesAllMemory) {
    std::string text = sampleBvh();
    text.replace(text.find("Frames: 4"), 9, "Frames: 100000000");
    const std::string file = folder.write("rig.bvh", text);
    expectRefusal({"run", file}, file,
                  kIsSanitized ? "" : "its reader takes more than 4 GiB of memory");
}

TEST_F(TolvaneRun, RefusesAFileWhoseReaderWaitsForEver) {
    ASSERT_EQ(mkfifo(folder.path("colours.mtl").c_str(), 0600), 0);
    const std::string file = folder.write("rig.obj", "mtllib colours.mtl\nv 0 0 0\n");
    expectRefusal(runTolvane({"run", file, "--time-limit", "1"}), file,
                  "its reader makes no progress for 2 s");
}

TEST_F(TolvaneRun, RefusesAFileWhoseNameHasALineBreakInOneLine) {
    expectRefusal(runTolvane({"run", "two\nlines.bvh"}), "two lines.bvh", "no such file");
}

TEST_F(TolvaneRun, RefusesFramesThatTheRigLacks) {
    expectRefusal({"run", rig(), "--frames", "2:4"}, rig(), "0:3", "usage");
    expectRefusal({"run", rig(), "--frames", "9:9"}, "9:9", "0:3", "usage");
}

TEST_F(TolvaneRun, RefusesAReversedOrMalformedRange) {
    expectRefusal({"run", rig(), "--frames", "3:1"}, "3:1", "ends before it begins", "usage");
    expectRefusal({"run", rig(), "--frames", "1-3"}, "1-3", "A:B", "usage");
    expectRefusal({"run", rig(), "--frames", ""}, "--frames", "A:B", "usage");
}

TEST_F(TolvaneRun, RefusesALibraryWithoutTheFactory) {
    expectRefusal({"run", rig(), "--plugin", LIBRARY_WITHOUT_FACTORY}, LIBRARY_WITHOUT_FACTORY,
                  "no translation library", "loading");
}

TEST_F(TolvaneRun, RefusesALibraryWhoseFactoryGivesNothing) {
    expectRefusal({"run", rig(), "--plugin", LIBRARY_GIVING_NULL}, LIBRARY_GIVING_NULL,
                  "returned null", "loading");
}

TEST_F(TolvaneRun, RefusesAPictureOrAPageThatCannotBeWritten) {
    const std::string missing = folder.path("missing/out");
    for (const char* option : {"--svg", "--html"}) {
        expectRefusal({"run", rig(), option, missing}, missing, "no such folder", "writing");
        expectRefusal({"run", rig(), option, folder.path("")}, folder.path(""), "folder",
                      "writing");
        expectRefusal({"run", rig(), option, "/dev/null"}, "/dev/null", "is not a regular file",
                      "writing");
    }
}

TEST_F(TolvaneRun, RefusesToDrawTwiceIntoOneFile) {
    expectRefusal({"run", rig(), "--svg", folder.path("out"), "--html", folder.path("./out")},
                  folder.path("./out"), "is written twice in one run", "writing");
    EXPECT_EQ(folder.fileCount(), 1U);
}

// However its path is spelled, and through either kind of link.
TEST_F(TolvaneRun, RefusesToDrawOverAFileThatIsRead) {
    namespace fs = std::filesystem;
    const std::string file = rig(), plugin = folder.path("plugin.so");
    const std::string types = folder.write("types.json", "{}");
    fs::copy_file(PLUGIN, plugin);
    fs::create_directory(folder.path("below"));
    for (const std::string& read : {file, plugin, types}) {
        const std::string name = fs::path(read).filename().string(), content = readFile(read);
        fs::create_symlink(read, folder.path("symbolic"));
        fs::create_symlink(folder.path("symbolic"), folder.path("twice"));
        fs::create_hard_link(read, folder.path("hard"));
        for (const std::string& spelling :
             {name, "./" + name, "below/../" + name, "below/..//" + name, std::string("symbolic"),
              std::string("twice"), std::string("hard")}) {
            const std::string picture = folder.path(spelling);
            for (const char* option : {"--svg", "--html"})
                expectRefusal({"run", file, "--plugin", plugin, "--types", types, option, picture},
                              picture, "is read, and will not be written over", "writing");
            EXPECT_EQ(readFile(read), content) << picture;
        }
        for (const char* link : {"twice", "symbolic", "hard"}) {
            EXPECT_EQ(readFile(folder.path(link)), content) << link;
            fs::remove(folder.path(link));
        }
    }
    EXPECT_EQ(folder.fileCount(), 4U);
}

// On a disk of 16 KiB, where that can be had.
TEST_F(TolvaneRun, NamesAFullDiskAndLeavesNothingOnIt) {
    const std::string disk = folder.path("disk");
    std::filesystem::create_directory(disk);
    const auto onDisk = [&](const std::string& command) {
        const std::string all =
            "mount -t tmpfs -o size=16k none " + quoted(disk) + " && " + command;
        return WEXITSTATUS(std::system(("unshare -r -m sh -c " + quoted(all)).c_str()));
    };
    if (onDisk("true") != 0) GTEST_SKIP() << "no disk can be mounted here";
    EXPECT_EQ(onDisk(quoted(TOLVANE) + " run --svg " + quoted(disk + "/out.svg") +
                     " >/dev/null 2>" + quoted(folder.path("errors")) + "; echo $? >" +
                     quoted(folder.path("status")) + "; test -z \"$(ls -A " + quoted(disk) + ")\""),
              0);
    EXPECT_EQ(readFile(folder.path("status")), "2\n");
    EXPECT_EQ(readFile(folder.path("errors")),
              "tolvane: " + disk + "/out.svg: cannot be written: no space left on device\n");
}

// Files may be no longer than 512 bytes there, which is too little for the report.
TEST_F(TolvaneRun, TakesALimitOnTheSizeOfFilesForAnErrorWhereItIsReached) {
    const std::string file = rig(), errors = folder.path("errors");
    const auto run = [&](const std::string& option) {
        const int result = std::system(("ulimit -f 1; " + quoted(TOLVANE) + " run " + quoted(file) +
                                        option + " 2>" + quoted(errors))
                                           .c_str());
        return WIFEXITED(result) ? WEXITSTATUS(result) : -1;
    };
    EXPECT_EQ(run(" -q"), 0);
    EXPECT_EQ(readFile(errors), "");
    EXPECT_EQ(run(" >" + quoted(folder.path("report"))), 2);
    EXPECT_EQ(readFile(folder.path("errors")),
              "tolvane: standard output: cannot be written: File too large\n");
}

// Even if it begins like a picture, which may be replaced otherwise.
TEST_F(TolvaneRun, RefusesToDrawOverAFileThatTheRigRefersTo) {
    const std::string text = "<svg >\nnewmtl red\nKd 1 0 0\n";
    const std::string colours = folder.write("colours.mtl", text);
    const std::string file = folder.write(
        "rig.obj", "mtllib colours.mtl\nusemtl red\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    expectRefusal({"run", file, "--svg", colours}, colours, "is read, and will not be written over",
                  "writing");
    EXPECT_EQ(readFile(colours), text);
}

TEST_F(TolvaneRun, RefusesToDrawOverAnotherRig) {
    const std::string other = folder.write("other.bvh", stillBvh());
    for (const char* option : {"--svg", "--html"})
        expectRefusal({"run", option, other}, other,
                      "is no picture and no page, and will not be replaced", "writing");
    EXPECT_EQ(readFile(other), stillBvh());
}

TEST_F(TolvaneRun, RefusesToDrawWithoutAPortThatHasASkeleton) {
    const std::string picture = folder.path("out.svg");
    expectRefusal({"run", rig(), "--plugin", STUDIO_LIBRARY, "--svg", picture}, picture,
                  "cannot be drawn", "writing");
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST_F(TolvaneRun, RefusesATypesFileThatIsNoJson) {
    const std::string types = folder.write("types.json", "structs:\n");
    expectRefusal({"run", rig(), "--types", types}, types, "line 1, column 1: is not JSON");
}

TEST_F(TolvaneRun, LeavesNoPictureBehindWhenItRefuses) {
    const std::string picture = folder.write("old.svg", "<svg>an old picture</svg>");
    const std::string empty = folder.write("empty.bvh", "");
    runTolvane({"run", empty, "--svg", picture});
    runTolvane({"run", empty, "--svg", folder.path("new.svg")});
    EXPECT_EQ(readFile(picture), "<svg>an old picture</svg>");
    EXPECT_EQ(folder.fileCount(), 2U);
}

}  // namespace
