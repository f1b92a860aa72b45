#include "tests/support/TemporaryFolder.h"
#include "tools/report/OutputFile.h"
#include "tools/support/Error.h"

#include <csignal>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace Tolvane::Tools;
namespace fs = std::filesystem;

const std::string kFormer = "<svg>former</svg>";

class OutputFiles : public testing::Test {
protected:
    // What the error says after the path; nothing if there is none.
    template <typename Work>
    static std::string refusal(const std::string& path, const Work& work) {
        try {
            work();
        } catch (const Error& error) {
            EXPECT_EQ(error.stage(), Stage::Writing);
            EXPECT_EQ(error.file(), path);
            EXPECT_THAT(error.what(), testing::StartsWith(path + ": "));
            return error.what() + path.size() + 2;
        }
        return "";
    }
    static std::string refusal(const std::string& path) {
        return refusal(path, [&] { OutputFile{path}; });
    }
    static mode_t permissions(const std::string& path) {
        struct stat status {};
        stat(path.c_str(), &status);
        return status.st_mode & 07777;
    }

    TemporaryFolder folder;
};

TEST_F(OutputFiles, ReplaceAFileAsAWhole) {
    const std::string path = folder.write("file", kFormer);
    OutputFile(path).write("new");
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST_F(OutputFiles, DoNotExistBeforeTheyAreWritten) {
    const OutputFile file(folder.path("file"));
    EXPECT_EQ(folder.fileCount(), 0U);
    const std::string text(3'000'000, 'a');
    file.write(text);
    EXPECT_TRUE(readFile(folder.path("file")) == text);
}

TEST_F(OutputFiles, HaveThePermissionsOfTheirFormersOrOfAnyNewFile) {
    const std::string former = folder.write("former", "");
    chmod(former.c_str(), 0640);
    OutputFile(former).write("text");
    EXPECT_EQ(permissions(former), 0640U);
    const mode_t mask = umask(027);
    OutputFile(folder.path("new")).write("text");
    umask(mask);
    EXPECT_EQ(permissions(folder.path("new")), 0640U);
}

TEST_F(OutputFiles, AreReplacedWhereALinkLeadsTo) {
    fs::create_directory(folder.path("below"));
    const std::string target = folder.write("below/target", kFormer);
    fs::create_symlink("below/target", folder.path("link"));
    fs::create_symlink("link", folder.path("second"));
    fs::create_symlink("below/missing", folder.path("dangling"));
    OutputFile(folder.path("second")).write("new");
    EXPECT_EQ(readFile(target), "new");
    OutputFile(folder.path("dangling")).write("text");
    EXPECT_EQ(readFile(folder.path("below/missing")), "text");
    for (const char* link : {"link", "second", "dangling"})
        EXPECT_TRUE(fs::is_symlink(folder.path(link))) << link;
    EXPECT_EQ(folder.fileCount(), 4U);
}

TEST_F(OutputFiles, AreRefusedWhereTheyCannotBeWritten) {
    EXPECT_EQ(refusal(folder.path("missing/file")), "cannot be written: there is no such folder");
    EXPECT_EQ(refusal(folder.path("")), "is a folder, not a file to write to");
    EXPECT_EQ(refusal("/dev/null"), "is not a regular file, and will not be replaced");
    EXPECT_EQ(refusal(""), "is a folder, not a file to write to");
    fs::create_symlink("round", folder.path("round"));
    EXPECT_EQ(refusal(folder.path("round")),
              "cannot be written: Too many levels of symbolic links");
    for (const char* after : {"", "/file"})
        EXPECT_EQ(refusal(folder.path(std::string(300, 'a') + after)),
                  "cannot be written: File name too long");
    fs::create_symlink("/dev/null", folder.path("device"));
    EXPECT_EQ(refusal(folder.path("device")), "is not a regular file, and will not be replaced");
}

TEST_F(OutputFiles, AreRefusedWhereALinkLeadsToAPipe) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    EXPECT_EQ(refusal("/dev/fd/" + std::to_string(ends[1])),
              "is not a regular file, and will not be replaced");
    for (const int end : ends) close(end);
}

TEST_F(OutputFiles, AreRefusedWhereThereIsNoPictureOrPage) {
    for (const char* other :
         {"\177ELF\2\1\1", "HIERARCHY\n", "{\"asset\": \"<svg >\"}", "<", " ", "<svgx>",
          "<?xml version=\"1.0\"?>\n<COLLADA xmlns=\"http://www.collada.org\">\n"}) {
        const std::string path = folder.write("other", other);
        fs::remove(folder.path("link"));
        fs::create_symlink(path, folder.path("link"));
        for (const std::string& each : {path, folder.path("link")})
            EXPECT_EQ(refusal(each), "is no picture and no page, and will not be replaced")
                << other;
    }
    for (const char* drawn :
         {"", "<svg xmlns", "\xEF\xBB\xBF \n<!DOCTYPE html>", "<html\nlang=\"en\">",
          "<?xml version=\"1.0\"?>\n<!-- Drawn by hand -->\n<SVG >"})
        EXPECT_EQ(refusal(folder.write("drawn", drawn)), "") << drawn;
}

// A former content that is a picture is no excuse there.
TEST_F(OutputFiles, AreRefusedWhereThisProgramPrintsTo) {
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
        const std::string path = folder.write("printed", kFormer);
        const int kept = dup(stream), file = open(path.c_str(), O_WRONLY | O_APPEND);
        dup2(file, stream);
        const std::string own = "/dev/fd/" + std::to_string(stream);
        const std::string ofOwn = refusal(own), ofPath = refusal(path);
        dup2(kept, stream);
        close(kept);
        close(file);
        for (const std::string& cause : {ofOwn, ofPath})
            EXPECT_EQ(cause, "is where this program prints to, and will not be replaced");
        EXPECT_EQ(refusal(path), "");
    }
}

TEST_F(OutputFiles, AreRefusedWhereTheyAreRead) {
    const std::string read = folder.write("read", kFormer);
    fs::create_symlink(read, folder.path("symbolic"));
    fs::create_hard_link(read, folder.path("hard"));
    for (const char* name : {"read", "./read", "symbolic", "hard"}) {
        const std::string path = folder.path(name);
        const std::string refused = "is read, and will not be written over";
        EXPECT_EQ(refusal(path, [&] { OutputFile(path, {read}); }), refused);
        const OutputFile file(path);
        EXPECT_EQ(refusal(path, [&] { file.refuseToReplace({"none", read}); }), refused);
    }
}

TEST_F(OutputFiles, AreRefusedWhereTwoAreTheSame) {
    folder.write("there", "");
    fs::create_hard_link(folder.path("there"), folder.path("hard"));
    fs::create_directory(folder.path("below"));
    for (const auto& [first, second] :
         {std::pair("new", "new"), std::pair("new", "./new"), std::pair("new", "below/../new"),
          std::pair("there", "hard")}) {
        Tolvane::Tools::OutputFiles files({});
        files.add(folder.path(first));
        const std::string path = folder.path(second);
        EXPECT_EQ(refusal(path, [&] { files.add(path); }), "is written twice in one run");
        EXPECT_EQ(refusal(path, [&] { files.add(folder.path("other")); }), "");
    }
}

TEST_F(OutputFiles, LeaveNothingBehindWhenWritingFails) {
    const std::string path = folder.path("file");
    const OutputFile file(path);
    // Meanwhile a folder has taken the name, and a file cannot replace a folder.
    fs::create_directories(path + "/inside");
    EXPECT_EQ(refusal(path, [&] { file.write("text"); }), "cannot be written: Is a directory");
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST_F(OutputFiles, StayAsTheyWereWhereOnlyAPartFits) {
    const std::string path = folder.write("file", kFormer);
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    const rlimit small{1000, former.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const auto formerAction = std::signal(SIGXFSZ, SIG_IGN);
    const std::string cause =
        refusal(path, [&] { OutputFile(path).write(std::string(2000, 'a')); });
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, formerAction);
    EXPECT_EQ(cause, "cannot be written: File too large");
    EXPECT_EQ(readFile(path), kFormer);
    EXPECT_EQ(folder.fileCount(), 1U);
}

}  // namespace
