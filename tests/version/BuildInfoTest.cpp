#include "version/BuildInfo.h"

#include <cstdlib>
#include <iostream>
#include <optional>
#include <regex>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Rigging::Module;

constexpr const char* kDumpVariable = "QUELMAR_DUMP_VERSION_INFO";

// A variable of this process's environment, as it was before when this goes.
class Variable {
public:
    explicit Variable(const char* name) : m_name(name) {
        if (const char* value = std::getenv(name)) m_before = value;
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() {
        if (m_before)
            set(m_before->c_str());
        else
            unset();
    }

    void set(const char* value) const { setenv(m_name, value, 1); }
    void unset() const { unsetenv(m_name); }

private:
    const char* m_name;
    std::optional<std::string> m_before;
};

// What std::cerr is given, instead of standard error.
class CapturedErrors {
public:
    CapturedErrors() : m_before(std::cerr.rdbuf(m_text.rdbuf())) {}
    CapturedErrors(const CapturedErrors&) = delete;
    CapturedErrors& operator=(const CapturedErrors&) = delete;
    ~CapturedErrors() { std::cerr.rdbuf(m_before); }

    std::string text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::streambuf* m_before;
};

TEST(BuildInfo, NamesTheProductAndItsBranch) {
    EXPECT_STREQ(productName(), "Tavrik Plugin");
    EXPECT_STREQ(branchName(), "release");
}

TEST(BuildInfo, HasAFullCommitIdentifier) {
    EXPECT_TRUE(std::regex_match(commitText(), std::regex("[0-9a-f]{40}"))) << commitText();
}

TEST(BuildInfo, HasADateStampWithWeekdayDateAndTwelveDigits) {
    const std::string stamp = buildDateStamp();
    std::smatch parts;
    ASSERT_TRUE(std::regex_match(stamp, parts,
                                 std::regex("(Mon|Tue|Wed|Thu|Fri|Sat|Sun) ([0-9]{2})/([0-9]{2})/"
                                            "([0-9]{4}), ([0-9]{8})([0-9]{2})([0-9]{2})")))
        << stamp;
    EXPECT_EQ(parts.str(5), parts.str(4) + parts.str(2) + parts.str(3));
    EXPECT_LT(parts.str(6), "24");
    EXPECT_LT(parts.str(7), "60");
}

TEST(BuildInfo, VersionNumberHasFourPartsEvenWhereTheLastAreZero) {
    EXPECT_EQ(versionNumberString(), "2.11.0.0");
}

TEST(BuildInfo, VersionStringHoldsTheWholeRecordWithTheFirstSevenOfTheCommit) {
    EXPECT_EQ(buildVersionString(), std::string("Tavrik Plugin version 2.11.0.0 (") +
                                        buildDateStamp() + ", build 86, commit " +
                                        std::string(commitText()).substr(0, 7) +
                                        ", branch release)");
}

TEST(EnvironmentFlag, IsOnForANumberOtherThanZero) {
    const Variable variable("TOLVANE_TEST_FLAG");
    for (const char* value : {"1", "2", "-1", "-3", "42", "007", " 1", "+1", "1x"}) {
        variable.set(value);
        EXPECT_TRUE(environmentFlag("TOLVANE_TEST_FLAG")) << '"' << value << '"';
    }
}

TEST(EnvironmentFlag, IsOffForAnythingElse) {
    const Variable variable("TOLVANE_TEST_FLAG");
    for (const char* value : {"0", "", "yes", "0x1", "abc", "-0", "x1", " "}) {
        variable.set(value);
        EXPECT_FALSE(environmentFlag("TOLVANE_TEST_FLAG")) << '"' << value << '"';
    }
}

TEST(EnvironmentFlag, IsOffWhereThereIsNoSuchVariable) {
    const Variable variable("TOLVANE_TEST_FLAG");
    variable.unset();
    EXPECT_FALSE(environmentFlag("TOLVANE_TEST_FLAG"));
}

TEST(EnvironmentFlag, GoesByTheVariableThatItIsGiven) {
    const Variable variable("TOLVANE_TEST_FLAG");
    const Variable other(kDumpVariable);
    variable.set("1");
    other.set("0");
    EXPECT_TRUE(environmentFlag("TOLVANE_TEST_FLAG"));
    EXPECT_FALSE(environmentFlag(kDumpVariable));
}

TEST(DumpVersionIfRequested, PrintsOneLineAndSaysSo) {
    const Variable variable(kDumpVariable);
    variable.set("1");
    const CapturedErrors errors;
    EXPECT_EQ(dumpVersionIfRequested(), 1);
    EXPECT_EQ(errors.text(), "   TolvanePlugin: " + buildVersionString() + "\n");
}

TEST(DumpVersionIfRequested, PrintsNothingUnrequested) {
    const Variable variable(kDumpVariable);
    const CapturedErrors errors;
    variable.set("0");
    EXPECT_EQ(dumpVersionIfRequested(), 0);
    variable.unset();
    EXPECT_EQ(dumpVersionIfRequested(), 0);
    EXPECT_EQ(errors.text(), "");
}

}  // namespace
