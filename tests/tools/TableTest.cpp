#include "tools/report/Table.h"

#include <sstream>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

TEST(Table, AlignsNumbersToTheRightByCharactersAndNotByBytes) {
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

TEST(Table, GroupsNumbersByThousands) {
    EXPECT_EQ(grouped(0), "0");
    EXPECT_EQ(grouped(999), "999");
    EXPECT_EQ(grouped(1000), "1,000");
    EXPECT_EQ(grouped(1234567), "1,234,567");
}

}  // namespace
