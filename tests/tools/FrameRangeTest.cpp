#include "tools/rig/FrameRange.h"
#include "tools/support/Error.h"

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

TEST(FrameRange, IncludesBothEnds) {
    const auto range = parseFrameRange("3:17");
    EXPECT_EQ(range.first, 3U);
    EXPECT_EQ(range.last, 17U);
    EXPECT_EQ(range.size(), 15U);
    EXPECT_EQ(parseFrameRange("0:0").size(), 1U);
}

class ParseFrameRange : public testing::TestWithParam<const char*> {};

TEST_P(ParseFrameRange, RefusesAMalformedRange) {
    EXPECT_THROW(parseFrameRange(GetParam()), Error);
}

INSTANTIATE_TEST_SUITE_P(Malformed, ParseFrameRange,
                         testing::Values("", ":", "3", "3:", ":3", "a:b", "3:b", "-1:3", "1:-3",
                                         "1:2:3", "1 :2", "1: 2", " 1:2", "1:2 ", "5:3", "1.5:2",
                                         "99999999999999999999:1", "0:99999999999999999999"));

TEST(FramesOf, IsEveryFrameOfTheRigUnlessSomeAreAskedFor) {
    Rig rig;
    rig.frameCount = 4;
    EXPECT_EQ(framesOf(rig, std::nullopt).first, 0U);
    EXPECT_EQ(framesOf(rig, std::nullopt).last, 3U);
    EXPECT_EQ(framesOf(rig, FrameRange{3, 3}).first, 3U);
}

TEST(FramesOf, RefusesFramesThatTheRigLacks) {
    Rig rig;
    rig.frameCount = 4;
    EXPECT_THROW(framesOf(rig, FrameRange{3, 4}), Error);
    EXPECT_THROW(framesOf(rig, FrameRange{4, 4}), Error);
}

}  // namespace
