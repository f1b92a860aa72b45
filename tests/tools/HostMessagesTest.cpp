#include "tools/node/HostMessages.h"
#include "tools/report/Report.h"

#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// "3 x a text"
std::vector<std::string> inWords(const HostMessages& messages) {
    std::vector<std::string> words;
    for (const auto& [text, times] : messages.kept())
        words.push_back(std::to_string(times) + " x " + text);
    return words;
}

HostMessages manyDifferent(std::size_t count, const std::string& start) {
    HostMessages messages;
    for (std::size_t i = 0; i < count; ++i) messages.add(start + std::to_string(i));
    return messages;
}

TEST(HostMessages, AreCountedInTheOrderInWhichTheyCameFirst) {
    HostMessages messages;
    EXPECT_THAT(inWords(messages), IsEmpty());
    EXPECT_EQ(messages.times(), 0U);
    for (const char* text : {"wrong", "", "also wrong", "wrong", "wrong\n", "wrong"})
        messages.add(text);
    EXPECT_THAT(inWords(messages),
                ElementsAre("3 x wrong", "1 x ", "1 x also wrong", "1 x wrong\n"));
    EXPECT_EQ(messages.times(), 6U);
    EXPECT_EQ(messages.timesOfOthers(), 0U);
}

TEST(HostMessages, AreKeptUpToANumberOfDifferentOnes) {
    HostMessages messages = manyDifferent(HostMessages::kMost + 5, "message ");
    for (const std::size_t i : {std::size_t{0}, HostMessages::kMost - 1, HostMessages::kMost})
        messages.add("message " + std::to_string(i));
    EXPECT_EQ(messages.kept().size(), HostMessages::kMost);
    EXPECT_EQ(messages.kept().front().times, 2U);
    EXPECT_EQ(messages.kept().back().times, 2U);
    EXPECT_EQ(messages.timesOfOthers(), 6U);
    EXPECT_EQ(messages.times(), HostMessages::kMost + 8);
}

TEST(HostMessages, AreAddedUp) {
    HostMessages messages = manyDifferent(HostMessages::kMost - 1, "a");
    HostMessages more = manyDifferent(HostMessages::kMost + 3, "b");
    more.add("b0");
    messages.add(more);
    EXPECT_EQ(messages.kept().size(), HostMessages::kMost);
    EXPECT_EQ(messages.kept().back().text, "b0");
    EXPECT_EQ(messages.kept().back().times, 2U);
    EXPECT_EQ(messages.timesOfOthers(), HostMessages::kMost + 2);
    EXPECT_EQ(messages.times(), 2 * HostMessages::kMost + 3);
}

// Those that are not shown, and those that were not kept, count all the same.
TEST(HostMessages, AreShownUpToTheFirstFewUnlessAskedOtherwise) {
    RunResult result;
    result.hostMessages = manyDifferent(HostMessages::kMost + 7, "message ");
    result.hostMessages.add("message 0");
    const auto shown = [&](bool verbose) {
        std::ostringstream text;
        printReport(text, {}, {}, result, {verbose, false});
        return text.str();
    };
    EXPECT_THAT(shown(false), HasSubstr("\nThe host displayed, 2 times: message 0\n"
                                        "The host displayed, 1 time: message 1\n"));
    EXPECT_THAT(shown(false), HasSubstr(": message 9\n... and others, 997 times\n"));
    EXPECT_THAT(shown(true), HasSubstr(": message 999\n... and others, 7 times\n"));
}

}  // namespace
