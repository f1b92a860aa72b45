#include "tests/tools/TemporaryFolder.h"
#include "tools/report/OutputFile.h"
#include "tools/report/Table.h"
#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <sstream>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

TEST(Table, NumbersAreSetToTheRightAndCharactersCounted) {
    Table table({"Name", "Time"});
    table.addRow({"a", "12.5 µs"});
    table.addRow({"longer", "3 µs"});
    std::ostringstream out;
    table.print(out);
    EXPECT_EQ(out.str(),
              "Name        Time\n"
              "------   -------\n"
              "a        12.5 µs\n"
              "longer      3 µs\n");
}

TEST(Table, NumbersAreGroupedByThousands) {
    EXPECT_EQ(grouped(0), "0");
    EXPECT_EQ(grouped(999), "999");
    EXPECT_EQ(grouped(1000), "1,000");
    EXPECT_EQ(grouped(1234567), "1,234,567");
}

TEST(Table, ParagraphsAreWrappedAndIndented) {
    EXPECT_EQ(wrapped("aa bb cc", 2, 7), "  aa bb\n  cc");
    EXPECT_EQ(wrapped("aaaaaaaaaa b", 1, 5), " aaaaaaaaaa\n b");
}

TEST(OneLine, ControlCharactersAndBlanksBecomeOneBlank) {
    EXPECT_EQ(oneLine(" a\n\tb\x1b[0m  c\x7f\n"), "a b [0m c");
    EXPECT_EQ(oneLine("µ"), "µ");
    EXPECT_EQ(oneLine(""), "");
}

TEST(OutputFile, ReplacesAFileAsAWhole) {
    const TemporaryFolder folder;
    const std::string path = folder.write("file", "something old and long");
    OutputFile(path).write("new");
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(folder.fileCount(), 1U);
}

TEST(OutputFile, IsNotMadeBeforeItIsWritten) {
    const TemporaryFolder folder;
    const OutputFile file(folder.path("file"));
    EXPECT_EQ(folder.fileCount(), 0U);
    file.write("text");
    EXPECT_EQ(readFile(folder.path("file")), "text");
}

TEST(OutputFile, IsRefusedWhereItCouldNotStand) {
    const TemporaryFolder folder;
    EXPECT_THROW(OutputFile(folder.path("missing/file")), Error);
    EXPECT_THROW(OutputFile(folder.path("")), Error);
    EXPECT_THROW(OutputFile("/dev/null"), Error);
}

TEST(OutputFile, LeavesNothingBehindWhenWritingFails) {
    const TemporaryFolder folder;
    const std::string path = folder.path("file");
    const OutputFile file(path);
    // The name is taken by a folder after all, which no file replaces.
    std::filesystem::create_directories(path + "/inside");
    EXPECT_THROW(file.write("text"), Error);
    EXPECT_EQ(folder.fileCount(), 1U);
}

}  // namespace
