// What loading the built library, or a program that has the same objects, does by itself.
#include "tests/version/ChildProcess.h"
#include "version/BuildInfo.h"

#include <optional>
#include <regex>
#include <string>

#include <gtest/gtest.h>

namespace {

using VersionTests::ChildResult;
using VersionTests::runChild;
using VersionTests::StandardError;

constexpr const char* kVariable = "QUELMAR_DUMP_VERSION_INFO";

using Value = std::optional<std::string>;

// The line as a whole: the name in sixteen columns, then the record.
std::string expectedLine() {
    return "   TolvanePlugin: " + Rigging::Module::buildVersionString() + "\n";
}

ChildResult loadPlugin(const Value& value, StandardError standardError = StandardError::Captured) {
    return runChild({LOAD_PLUGIN, PLUGIN}, kVariable, value, standardError);
}

std::string flagWith(const Value& value) {
    return runChild({TELL_DUMP_FLAG}, kVariable, value).standardOutput;
}

class DumpRequested : public testing::TestWithParam<std::string> {};

TEST_P(DumpRequested, PrintsTheLineOnceOnStandardErrorAlone) {
    const ChildResult result = loadPlugin(GetParam());
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.standardError, expectedLine());
    EXPECT_EQ(result.standardOutput, "");
}

TEST_P(DumpRequested, SetsTheFlag) { EXPECT_EQ(flagWith(GetParam()), "on\n"); }

INSTANTIATE_TEST_SUITE_P(ByANumberOtherThanZero, DumpRequested,
                         testing::Values("1", "-3", "2", "-1", "007", "  5", "+1", "1yes", "0001"));

class DumpNotRequested : public testing::TestWithParam<Value> {};

TEST_P(DumpNotRequested, PrintsNothing) {
    const ChildResult result = loadPlugin(GetParam());
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.standardError, "");
    EXPECT_EQ(result.standardOutput, "");
}

TEST_P(DumpNotRequested, LeavesTheFlagOff) { EXPECT_EQ(flagWith(GetParam()), "off\n"); }

INSTANTIATE_TEST_SUITE_P(ByAnythingElse, DumpNotRequested,
                         testing::Values(std::nullopt, "0", "", "yes", "0x1", "abc", "00", "-0",
                                         " ", "- 1", "true", ".5"));

TEST(DumpAtLoad, HasTheFormThatAPersonReads) {
    const std::regex line(
        "   TolvanePlugin: Tavrik Plugin version 2\\.11\\.0\\.0 "
        "\\((Mon|Tue|Wed|Thu|Fri|Sat|Sun) [0-9]{2}/[0-9]{2}/[0-9]{4}, [0-9]{12}, build 86, "
        "commit [0-9a-f]{7}, branch release\\)\n");
    const std::string printed = loadPlugin("1").standardError;
    EXPECT_TRUE(std::regex_match(printed, line)) << printed;
}

// The stream that the C++ library writes to would still reach the terminal.
TEST(DumpAtLoad, PrintsNothingWhereStandardErrorHasNoDescriptor) {
    const ChildResult result =
        runChild({LOAD_PLUGIN, PLUGIN, "--without-descriptor"}, kVariable, "1");
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.standardError, "");
    EXPECT_EQ(result.standardOutput, "");
}

TEST(DumpAtLoad, DoesNoHarmWhereStandardErrorIsClosed) {
    const ChildResult result = loadPlugin("1", StandardError::Closed);
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.standardOutput, "");
}

}  // namespace
