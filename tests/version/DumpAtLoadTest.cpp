// What loading the built library, or a program that has the same objects, does by itself.
#include "version/BuildInfo.h"

#include <cstdio>
#include <optional>
#include <regex>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace {

using Value = std::optional<std::string>;

struct Result {
    std::string output;
    int status;
};

// What a command of the shell writes to standard output, with the variable as given or without it.
Result run(const Value& value, const std::string& command) {
    const std::string variable = "QUELMAR_DUMP_VERSION_INFO";
    const std::string environment =
        value ? variable + "='" + *value + "' " : "unset " + variable + "; ";
    std::FILE* output = popen((environment + command).c_str(), "r");
    if (!output) throw std::runtime_error("no process can be made");
    Result result{"", 0};
    for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output))
        result.output += static_cast<char>(c);
    result.status = pclose(output);
    return result;
}

const std::string kLoad = std::string("'") + LOAD_PLUGIN + "' '" + PLUGIN + "'";
const std::string kTellFlag = std::string("'") + TELL_DUMP_FLAG + "'";

// That of loading the plugin: what goes to one of its streams, while the other goes nowhere.
void expectErrorsAlone(const Value& value, const std::string& expected) {
    const Result errors = run(value, kLoad + " 2>&1 >/dev/null");
    EXPECT_EQ(errors.output, expected);
    EXPECT_EQ(errors.status, 0);
    EXPECT_EQ(run(value, kLoad + " 2>/dev/null").output, "");
}

class DumpRequested : public testing::TestWithParam<std::string> {};

// The line as a whole: the name in sixteen columns, then the record.
TEST_P(DumpRequested, PrintsTheLineOnceOnStandardErrorAlone) {
    expectErrorsAlone(GetParam(),
                      "   TolvanePlugin: " + Rigging::Module::buildVersionString() + "\n");
}

TEST_P(DumpRequested, SetsTheFlag) {
    EXPECT_EQ(run(GetParam(), kTellFlag + " 2>/dev/null").output, "on\n");
}

INSTANTIATE_TEST_SUITE_P(ByANumberOtherThanZero, DumpRequested,
                         testing::Values("1", "-3", "2", "-1", "007", "  5", "+1", "1yes", "0001"));

class DumpNotRequested : public testing::TestWithParam<Value> {};

TEST_P(DumpNotRequested, PrintsNothing) { expectErrorsAlone(GetParam(), ""); }

TEST_P(DumpNotRequested, LeavesTheFlagOff) {
    EXPECT_EQ(run(GetParam(), kTellFlag).output, "off\n");
}

INSTANTIATE_TEST_SUITE_P(ByAnythingElse, DumpNotRequested,
                         testing::Values(std::nullopt, "0", "", "yes", "0x1", "abc", "00", "-0",
                                         " ", "- 1", "true", ".5"));

TEST(DumpAtLoad, HasTheFormThatAPersonReads) {
    const std::regex line(
        "   TolvanePlugin: Tavrik Plugin version 2\\.11\\.0\\.0 "
        "\\((Mon|Tue|Wed|Thu|Fri|Sat|Sun) [0-9]{2}/[0-9]{2}/[0-9]{4}, [0-9]{12}, build 86, "
        "commit [0-9a-f]{7}, branch release\\)\n");
    const std::string printed = run("1", kLoad + " 2>&1").output;
    EXPECT_TRUE(std::regex_match(printed, line)) << printed;
}

// The stream that the C++ library writes to would still reach the terminal.
TEST(DumpAtLoad, PrintsNothingWhereStandardErrorHasNoDescriptor) {
    const Result result = run("1", kLoad + " --without-descriptor 2>&1");
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.status, 0);
}

TEST(DumpAtLoad, LeavesTheFlagOffWhereStandardErrorHasNoDescriptor) {
    EXPECT_EQ(run("1", kTellFlag + " --without-descriptor 2>&1").output, "off\n");
}

TEST(DumpAtLoad, DoesNoHarmWhereStandardErrorIsClosed) {
    const Result result = run("1", kLoad + " 2>&-");
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.status, 0);
}

}  // namespace
