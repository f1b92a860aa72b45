#include "tools/support/OneLine.h"

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

TEST(OneLine, TurnsControlCharactersAndBlanksIntoOneBlank) {
    EXPECT_EQ(oneLine(" a\n\tb\x1b[0m  c\x7f\n"), "a b [0m c");
    EXPECT_EQ(oneLine("µ"), "µ");
    EXPECT_EQ(oneLine(""), "");
}

}  // namespace
