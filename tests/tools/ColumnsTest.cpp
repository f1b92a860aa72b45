#include "tools/support/Columns.h"

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

TEST(Columns, CountsWhatATerminalShows) {
    EXPECT_EQ(columnsOf(""), 0U);
    EXPECT_EQ(columnsOf("12.5 µs"), 7U);
    EXPECT_EQ(columnsOf("左腕"), 4U);
    EXPECT_EQ(columnsOf("🦴"), 2U);
    EXPECT_EQ(columnsOf("e\xcc\x81"), 1U) << "with an accent of its own";
}

TEST(Columns, TakesEachByteThatIsNoUtf8ForACharacter) {
    EXPECT_EQ(columnsOf("a\x80\xff"), 3U);
    EXPECT_EQ(columnsOf("\xe5\xb7"), 2U) << "cut off";
    EXPECT_EQ(columnsOf("\xc0\xaf"), 2U) << "overlong";
    EXPECT_EQ(columnsOf("\xed\xa0\x80"), 3U) << "half of a pair";
}

TEST(Columns, TellsWhatCannotBePrinted) {
    for (const char* text : {"a", "é", "左", "🦴", "\xcc\x81"})
        EXPECT_TRUE(firstCharacter(text).isPrintable) << text;
    for (const char* text : {"\n", "\x1b", "\x7f", "\xc2\x9b", "\xe2\x80\xae", "\xff"})
        EXPECT_FALSE(firstCharacter(text).isPrintable);
}

TEST(Columns, ShortensInTheMiddleAndNotWithinACharacter) {
    EXPECT_EQ(shortened("Rigging::Pins", 13), "Rigging::Pins");
    EXPECT_EQ(shortened("Rigging::Pins", 12), "Rigg...:Pins");
    EXPECT_EQ(shortened("abcdefgh", 5), "a...h");
    EXPECT_EQ(shortened("左腕右腕左足", 8), "左...足");
    for (std::size_t columns = 5; columns < 20; ++columns)
        EXPECT_LE(columnsOf(shortened("a左b腕c右d腕e左f足g\xff\xffh", columns)), columns);
}

TEST(Columns, WrapsAndIndentsParagraphs) {
    EXPECT_EQ(wrapped("aa bb cc", 2, 7), "  aa bb\n  cc");
    EXPECT_EQ(wrapped("", 2, 7), "  ");
    EXPECT_EQ(wrapped("µµ µµ µ", 0, 5), "µµ µµ\nµ");
}

TEST(Columns, BreaksAWordThatIsLongerThanALine) {
    EXPECT_EQ(wrapped("aaaaaaaaaa b", 1, 5), " aaaa\n aaaa\n aa b");
    EXPECT_EQ(wrapped("b aaaaaaaa", 1, 5), " b\n aaaa\n aaaa");
    EXPECT_EQ(wrapped("左腕右", 0, 3), "左\n腕\n右");
}

}  // namespace
