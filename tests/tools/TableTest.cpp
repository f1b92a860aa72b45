#include "tools/report/Table.h"
#include "tools/support/Columns.h"

#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

std::string printed(const Table& table) {
    std::ostringstream out;
    table.print(out);
    return out.str();
}

TEST(Table, AlignsNumbersToTheRightByCharactersAndNotByBytes) {
    Table table({"Name", "Time"});
    table.addRow({"a", "12.5 µs"});
    table.addRow({"longer", "3 µs"});
    EXPECT_EQ(printed(table),
              "Name       Time\n"
              "------  -------\n"
              "a       12.5 µs\n"
              "longer     3 µs\n");
}

TEST(Table, FitsTheLineWhateverItsFirstColumnHolds) {
    Table table({"Name", "Time", "Wrong"});
    table.addRow({std::string(300, 'a'), "12.5 µs", "1,234,567"});
    table.addRow({"左腕" + std::string(300, 'b') + "足", "3 µs", "0"});
    std::istringstream lines(printed(table));
    for (std::string line; std::getline(lines, line);) EXPECT_EQ(columnsOf(line), 80U) << line;
    EXPECT_THAT(printed(table), testing::HasSubstr("\n左腕bbb"));
    EXPECT_THAT(printed(table), testing::HasSubstr("bbb足 "));
}

TEST(Table, ColoursLastCellsWithoutMovingThem) {
    Table table({"Name", "Wrong"});
    table.addRow({"a", "0"});
    table.addRow({"b", "12"}, Colour::Bad);
    EXPECT_THAT(printed(table), testing::EndsWith("\nb        12\n"));
    std::ostringstream out;
    table.print(out, true);
    EXPECT_EQ(out.str(), "Name  Wrong\n----  -----\na         0\nb        \033[1;31m12\033[0m\n");
}

}  // namespace
