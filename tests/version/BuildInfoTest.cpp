#include "version/BuildInfo.h"

#include <cstdlib>
#include <regex>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Rigging::Module;

// A variable of this process's environment, which is not there before and after.
class Variable {
public:
    explicit Variable(const char* name) : m_name(name) {}
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() { unset(); }

    void set(const char* value) const { setenv(m_name, value, 1); }
    void unset() const { unsetenv(m_name); }

private:
    const char* m_name;
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
    variable.unset();
    EXPECT_FALSE(environmentFlag("TOLVANE_TEST_FLAG"));
    const Variable other("TOLVANE_OTHER_TEST_FLAG");
    other.set("1");
    EXPECT_FALSE(environmentFlag("TOLVANE_TEST_FLAG"));
}

}  // namespace
