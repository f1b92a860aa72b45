#include "tests/tools/TemporaryFolder.h"
#include "tools/report/OutputFile.h"
#include "tools/support/Error.h"

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

TEST(OutputFile, ReplacesAFileAsAWhole) {
    const TemporaryFolder folder;
    const std::string path = folder.write("file", "something old and long");
    OutputFile(path).write("new");
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST(OutputFile, DoesNotExistBeforeItIsWritten) {
    const TemporaryFolder folder;
    const OutputFile file(folder.path("file"));
    EXPECT_EQ(folder.fileCount(), 0U);
    file.write("text");
    EXPECT_EQ(readFile(folder.path("file")), "text");
}

TEST(OutputFile, RefusesAPathThatCannotBeWritten) {
    const TemporaryFolder folder;
    EXPECT_THROW(OutputFile(folder.path("missing/file")), Error);
    EXPECT_THROW(OutputFile(folder.path("")), Error);
    EXPECT_THROW(OutputFile("/dev/null"), Error);
}

TEST(OutputFile, LeavesNothingBehindWhenWritingFails) {
    const TemporaryFolder folder;
    const std::string path = folder.path("file");
    const OutputFile file(path);
    // Meanwhile a folder has taken the name, and a file cannot replace a folder.
    std::filesystem::create_directories(path + "/inside");
    EXPECT_THROW(file.write("text"), Error);
    EXPECT_EQ(folder.fileCount(), 1U);
}

}  // namespace
