#include "tests/host/Attributes.h"

#include <OpenVornik/VString.h>

#include <gtest/gtest.h>

TEST(HostString, StringIsMadeFromTextAndComparesWithIt) {
    const VString text("walk");
    EXPECT_STREQ(text.asChar(), "walk");
    EXPECT_EQ(text.length(), 4U);
    EXPECT_TRUE(text == "walk");
    EXPECT_TRUE(text != "Walk");
    EXPECT_TRUE(text == VString("walk"));
    EXPECT_TRUE(text != VString("run"));
}

TEST(HostString, NullTextIsEmpty) {
    const char* null = nullptr;
    VString text(null);
    EXPECT_EQ(text.length(), 0U);
    EXPECT_TRUE(text == null);
    text = "walk";
    EXPECT_EQ(text, "walk");
    EXPECT_TRUE(text != null);
    text = null;
    EXPECT_STREQ(text.asChar(), "");
}

TEST(HostString, StringsConcatenate) {
    VString text("walk");
    text += "ing";
    EXPECT_EQ(text, "walking");
    EXPECT_EQ(text + " " + text, "walking walking");
}

TEST(HostStringFormat, FormatReplacesPlaceholdersWhereverTheyStand) {
    VString text("before");
    EXPECT_EQ(text.format("^2s and ^1s, ^2s", "a", "b"), VStatus::kSuccess);
    EXPECT_EQ(text, "b and a, b");
    EXPECT_EQ(text.format("plain"), VStatus::kSuccess);
    EXPECT_EQ(text, "plain");
}

TEST(HostStringFormat, FormatTakesTenArguments) {
    VString text;
    EXPECT_EQ(text.format("^1s^2s^3s^4s^5s^6s^7s^8s^9s^10s", "a", "b", "c", "d", "e", "f", "g", "h",
                          "i", "j"),
              VStatus::kSuccess);
    EXPECT_EQ(text, "abcdefghij");
}

TEST(HostStringFormat, PlaceholderOfAnUnusedArgumentStaysAndFails) {
    VString text;
    EXPECT_EQ(text.format("^1s ^2s ^10s", "a", VString::argUnused), VStatus::kInvalidParameter);
    EXPECT_EQ(text, "a ^2s ^10s");
}

TEST(HostStringFormat, EmptyTextAndACopyOfArgUnusedAreArguments) {
    const VString copy = VString::argUnused;
    VString text;
    EXPECT_EQ(text.format("[^1s^2s]", "", copy), VStatus::kSuccess);
    EXPECT_EQ(text, "[]");
}

TEST(HostStringFormat, FormatDoesNotExpandArgumentsAgain) {
    VString text;
    EXPECT_EQ(text.format("^1s", "^2s", "b"), VStatus::kSuccess);
    EXPECT_EQ(text, "^2s");
}

TEST(HostStringFormat, FormatLeavesWhatIsNoPlaceholder) {
    VString text;
    EXPECT_EQ(text.format("^ ^s ^0s ^11s ^01s ^1 ^1d 1s ^^1s ^", "a"), VStatus::kSuccess);
    EXPECT_EQ(text, "^ ^s ^0s ^11s ^01s ^1 ^1d 1s ^a ^");
}

TEST(HostStringFormat, FormatMayTakeItsOwnStringAsFormatAndArgument) {
    VString text("<^1s>");
    EXPECT_EQ(text.format(text, text), VStatus::kSuccess);
    EXPECT_EQ(text, "<<^1s>>");
}
