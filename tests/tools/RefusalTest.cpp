// What `tolvane` says of requests that it cannot carry out: one line that names the culprit, status
// 2, and nothing left behind.

#include "tests/tools/SampleRigs.h"
#include "tests/tools/TolvaneProcess.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Refusal : public testing::Test {
protected:
    // Each bad request in the plain and in the JSON form.
    void expectRefusal(std::vector<std::string> arguments, const std::string& culprit,
                       const std::string& cause) {
        for (const bool json : {false, true}) {
            if (json) arguments.push_back("--json");
            const TolvaneProcess process = runTolvane(arguments);
            EXPECT_EQ(process.status, 2);
            EXPECT_EQ(process.output, "");
            EXPECT_THAT(process.errors, StartsWith("tolvane: "));
            EXPECT_THAT(process.errors, HasSubstr(culprit));
            EXPECT_THAT(process.errors, HasSubstr(cause));
            EXPECT_EQ(process.errors.find('\n'), process.errors.size() - 1) << process.errors;
        }
    }

    std::string rig() const { return folder.write("rig.bvh", sampleBvh()); }
    std::string emptyFile() const { return folder.write("empty.bvh", ""); }

    TemporaryFolder folder;
};

TEST_F(Refusal, OfNoCommand) {
    const TolvaneProcess process = runTolvane({});
    EXPECT_EQ(process.status, 2);
    EXPECT_EQ(process.output, "");
    EXPECT_EQ(process.errors,
              "tolvane: a command is missing; \"tolvane run\" runs the bundled example\n");
}

TEST_F(Refusal, OfAnUnknownCommand) { expectRefusal({"walk"}, "walk", "not expected"); }

TEST_F(Refusal, OfAnUnknownOption) {
    expectRefusal({"run", rig(), "--fast"}, "--fast", "not expected");
}

TEST_F(Refusal, OfAnOptionWithoutItsValue) {
    for (const char* option : {"--frames", "--fps", "--svg", "--plugin", "--animation"}) {
        const TolvaneProcess process = runTolvane({"run", option});
        EXPECT_EQ(process.status, 2);
        EXPECT_EQ(process.output, "");
        EXPECT_THAT(process.errors, HasSubstr(option));
    }
}

TEST_F(Refusal, OfASecondFile) { expectRefusal({"run", rig(), "b.bvh"}, "b.bvh", "not expected"); }

TEST_F(Refusal, OfAMissingFile) {
    expectRefusal({"run", folder.path("none.bvh")}, folder.path("none.bvh"), "no such file");
}

TEST_F(Refusal, OfAFolder) { expectRefusal({"run", folder.path("")}, folder.path(""), "folder"); }

TEST_F(Refusal, OfADevice) { expectRefusal({"run", "/dev/null"}, "/dev/null", "no ordinary file"); }

TEST_F(Refusal, OfAnEmptyFile) { expectRefusal({"run", emptyFile()}, emptyFile(), "is empty"); }

TEST_F(Refusal, OfAFileThatIsNoRig) {
    const std::string file = folder.write("notes.txt", "Remember the milk.\n");
    expectRefusal({"run", file}, file, "is no rig");
}

TEST_F(Refusal, OfATruncatedRig) {
    const std::string file =
        folder.write("cut.bvh", sampleBvh().substr(0, sampleBvh().size() - 20));
    expectRefusal({"run", file}, file, "cannot be read");
}

TEST_F(Refusal, OfACorruptedRig) {
    std::string text = sampleGltf();
    text.replace(text.find("base64,") + 20, 4, "\x80\x81!?");
    const std::string file = folder.write("rig.gltf", text);
    expectRefusal({"run", file}, file, "cannot be read");
}

TEST_F(Refusal, OfAFileThatNestsTooDeepForItsReader) {
    std::string text = "HIERARCHY\nROOT a\n{\nOFFSET 0 0 0\nCHANNELS 0\n";
    for (int i = 0; i < 200'000; ++i) text += "JOINT a\n{\nOFFSET 0 0 0\nCHANNELS 0\n";
    const std::string file = folder.write("deep.bvh", text);
    expectRefusal({"run", file}, file, "");
}

TEST_F(Refusal, OfANameThatWouldBreakTheLine) {
    expectRefusal({"run", "two\nlines.bvh"}, "two lines.bvh", "no such file");
}

TEST_F(Refusal, OfFramesOutOfRange) {
    expectRefusal({"run", rig(), "--frames", "2:4"}, rig(), "0:3");
    expectRefusal({"run", rig(), "--frames", "9:9"}, "9:9", "0:3");
}

TEST_F(Refusal, OfAReversedOrMalformedRange) {
    expectRefusal({"run", rig(), "--frames", "3:1"}, "3:1", "ends before it begins");
    expectRefusal({"run", rig(), "--frames", "1-3"}, "1-3", "A:B");
    expectRefusal({"run", rig(), "--frames", ""}, "--frames", "A:B");
}

TEST_F(Refusal, OfARateThatIsNone) {
    for (const char* rate : {"0", "-5", "nan", "inf", "fast", "5x", ""})
        expectRefusal({"run", rig(), std::string("--fps=") + rate}, "--fps", "");
}

TEST_F(Refusal, OfAnUnknownAnimationNamesThoseThatThereAre) {
    const std::string file = folder.write("rig.gltf", sampleGltf());
    expectRefusal({"run", file, "--animation", "run"}, file, "only \"move\", \"still\"");
}

TEST_F(Refusal, OfALibraryThatIsMissing) {
    expectRefusal({"run", rig(), "--plugin", "none.so"}, "none.so", "no such file");
}

TEST_F(Refusal, OfALibraryThatIsNone) {
    expectRefusal({"run", rig(), "--plugin", rig()}, rig(), "cannot be loaded");
}

TEST_F(Refusal, OfALibraryWithoutTheFactory) {
    expectRefusal({"run", rig(), "--plugin", LIBRARY_WITHOUT_FACTORY}, LIBRARY_WITHOUT_FACTORY,
                  "no translation library");
}

TEST_F(Refusal, OfALibraryWhoseFactoryGivesNothing) {
    expectRefusal({"run", rig(), "--plugin", LIBRARY_GIVING_NULL}, LIBRARY_GIVING_NULL,
                  "returned null");
}

TEST_F(Refusal, OfAPictureWhereNoneCanBeWritten) {
    const std::string missing = folder.path("missing/out.svg");
    expectRefusal({"run", rig(), "--svg", missing}, missing, "no such folder");
    expectRefusal({"run", rig(), "--svg", folder.path("")}, folder.path(""), "folder");
    expectRefusal({"run", rig(), "--svg", "/dev/null"}, "/dev/null", "no ordinary file");
}

// By whatever spelling of its path, and by either kind of link.
TEST_F(Refusal, OfAPictureOverAFileThatIsRead) {
    namespace fs = std::filesystem;
    const std::string file = rig(), plugin = folder.path("plugin.so");
    fs::copy_file(PLUGIN, plugin);
    fs::create_directory(folder.path("below"));
    for (const std::string& read : {file, plugin}) {
        const std::string name = fs::path(read).filename().string(), content = readFile(read);
        fs::create_symlink(read, folder.path("symbolic"));
        fs::create_symlink(folder.path("symbolic"), folder.path("twice"));
        fs::create_hard_link(read, folder.path("hard"));
        for (const std::string& spelling :
             {name, "./" + name, "below/../" + name, "below/..//" + name, std::string("symbolic"),
              std::string("twice"), std::string("hard")}) {
            const std::string picture = folder.path(spelling);
            expectRefusal({"run", file, "--plugin", plugin, "--svg", picture}, picture,
                          "is read, and will not be written over");
            EXPECT_EQ(readFile(read), content) << picture;
        }
        for (const char* link : {"twice", "symbolic", "hard"}) {
            EXPECT_EQ(readFile(folder.path(link)), content) << link;
            fs::remove(folder.path(link));
        }
    }
    EXPECT_EQ(folder.fileCount(), 3U);
}

TEST_F(Refusal, OfAPictureOverAFileThatTheRigRefersTo) {
    const std::string colours = folder.write("colours.mtl", "newmtl red\nKd 1 0 0\n");
    const std::string file = folder.write(
        "rig.obj", "mtllib colours.mtl\nusemtl red\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    expectRefusal({"run", file, "--svg", colours}, colours,
                  "is read, and will not be written over");
    EXPECT_EQ(readFile(colours), "newmtl red\nKd 1 0 0\n");
}

TEST_F(Refusal, LeavesNoPictureBehind) {
    const std::string picture = folder.write("old.svg", "an old picture");
    const std::string empty = emptyFile();
    runTolvane({"run", empty, "--svg", picture});
    runTolvane({"run", empty, "--svg", folder.path("new.svg")});
    EXPECT_EQ(readFile(picture), "an old picture");
    EXPECT_EQ(folder.fileCount(), 2U);
}

}  // namespace
