#include "tools/support/OneLine.h"

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

TEST(OneLine, TurnsControlCharactersAndBlanksIntoOneBlank) {
    EXPECT_EQ(oneLine(" a\n\tb\x1b[0m  c\x7f\n"), "a b [0m c");
    EXPECT_EQ(oneLine("µ\u0301 骨"), "µ\u0301 骨");
    EXPECT_EQ(oneLine(""), "");
}

TEST(OneLine, HoldsNothingThatATerminalObeysNorTurnsTheTextAround) {
    EXPECT_EQ(oneLine("a\u0085b\u009b31mc\u2028d\u202ee\u2066f"), "a b 31mc d e f");
    EXPECT_EQ(oneLine("J\xf6rg\x9b.bvh\xc3"), "J\ufffdrg\ufffd.bvh\ufffd");
    EXPECT_EQ(oneLine("J\ufffdrg"), "J\ufffdrg");
}

}  // namespace
