#include "tools/Error.h"
#include "tools/FrameRange.h"

#include <gtest/gtest.h>

namespace {

using Tolvane::Error;
using Tolvane::parseFrameRange;

TEST(FrameRange, BothEndsAreIncluded) {
    const auto range = parseFrameRange("3:17");
    EXPECT_EQ(range.first, 3U);
    EXPECT_EQ(range.last, 17U);
    EXPECT_EQ(range.size(), 15U);
    EXPECT_EQ(parseFrameRange("0:0").size(), 1U);
}

class MalformedFrameRange : public testing::TestWithParam<const char*> {};

TEST_P(MalformedFrameRange, IsRefused) { EXPECT_THROW(parseFrameRange(GetParam()), Error); }

INSTANTIATE_TEST_SUITE_P(All, MalformedFrameRange,
                         testing::Values("", ":", "3", "3:", ":3", "a:b", "3:b", "-1:3", "1:-3",
                                         "1:2:3", "1 :2", "1: 2", " 1:2", "1:2 ", "5:3", "1.5:2",
                                         "99999999999999999999:1", "0:99999999999999999999"));

}  // namespace
