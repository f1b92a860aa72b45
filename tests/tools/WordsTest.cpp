#include "tools/report/Words.h"

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using std::chrono::nanoseconds;

TEST(Words, GroupNumbersByThousands) {
    EXPECT_EQ(grouped(0), "0");
    EXPECT_EQ(grouped(999), "999");
    EXPECT_EQ(grouped(1000), "1,000");
    EXPECT_EQ(grouped(1234567), "1,234,567");
}

TEST(Words, GiveTimesInTheUnitThatFits) {
    EXPECT_EQ(inWords(nanoseconds(0)), "0 ns");
    EXPECT_EQ(inWords(nanoseconds(999)), "999 ns");
    EXPECT_EQ(inWords(nanoseconds(1'000)), "1.0 µs");
    EXPECT_EQ(inWords(nanoseconds(999'949)), "999.9 µs");
    EXPECT_EQ(inWords(nanoseconds(999'950)), "1.0 ms");
    EXPECT_EQ(inWords(nanoseconds(999'949'999)), "999.9 ms");
    EXPECT_EQ(inWords(nanoseconds(3'600'000'000'000)), "3600.0 s");
}

}  // namespace
