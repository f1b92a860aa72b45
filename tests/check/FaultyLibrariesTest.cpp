// The checker is checked: each case finds the mistake of a library that makes it, and no case finds
// one that is not there.
#include "tests/check/Check.h"
#include "tests/check/FaultTable.h"

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;

constexpr const char* kAllCases = ".";

// A regular expression. The cases that take long are tried where they are meant, unless TRY_CASES
// is "all"; no other is if it is "meant".
std::string triedOn(const FaultyLibrary& row) {
    const char* wanted = std::getenv("TRY_CASES");
    const std::string cases = wanted ? wanted : "quick";
    if (cases == "all") return kAllCases;
    if (cases == "meant") return "^" + row.tried + "$";
    const bool isOfHost = row.tried.rfind("failing-hosts/", 0) == 0;
    const std::string meant = isOfHost ? "failing-hosts/" : row.tried + "$";
    return "^(" + meant + "|(?!" + kDearCases + "))";
}

class FaultyLibraries : public testing::TestWithParam<FaultyLibrary> {};

TEST_P(FaultyLibraries, AreFoundByTheirCaseAndNoOther) {
    const FaultyLibrary& row = GetParam();
    if (row.library.empty()) GTEST_SKIP() << "it cannot be built by this compiler";
    const bool isChosen = row.environment.empty();
    Verdicts verdicts = check(row.library, only(triedOn(row)),
                              isChosen ? "TOLVANE_TEST_FAULT=" + row.fault : row.environment);
    const auto meant = verdicts.extract(row.tried);
    ASSERT_FALSE(meant.empty()) << "there is no such case";
    if (isForbiddenHere(meant.mapped())) GTEST_SKIP() << toldBy(meant.mapped());
    EXPECT_EQ(meant.mapped()["verdict"], row.verdict) << meant.mapped();
    EXPECT_THAT(toldBy(meant.mapped()), HasSubstr(row.says));
    const std::regex mayFindItToo(row.also), cannotBeTried(row.untried);
    bool isFoundByOthers = false;
    for (const auto& [name, result] : verdicts) {
        if (result["verdict"] == "skipped") {
            const bool isForeseen = std::regex_search(name, cannotBeTried);
            EXPECT_TRUE(isForeseen || isForbiddenHere(result)) << result;
        } else if (result["verdict"] != "passed") {
            EXPECT_TRUE(std::regex_search(name, mayFindItToo)) << result;
            isFoundByOthers = true;
        }
    }
    const bool mayBeFound = row.also != FaultyLibrary().also;
    EXPECT_TRUE(isFoundByOthers || !mayBeFound || triedOn(row) != kAllCases) << row.also;
}

// Such as "ports_shape", or "loading_factory_of_libtools_giving_null".
std::string nameOfTest(const testing::TestParamInfo<FaultyLibrary>& info) {
    const FaultyLibrary& row = info.param;
    std::string name = row.fault.empty() ? row.tried : row.fault;
    if (row.library != FAULTY_LIBRARY)
        name += "_of_" + std::filesystem::path(row.library).stem().string();
    for (char& each : name)
        if (!std::isalnum(static_cast<unsigned char>(each))) each = '_';
    return name;
}

INSTANTIATE_TEST_SUITE_P(Of, FaultyLibraries, testing::ValuesIn(faultyLibraries()), nameOfTest);

TEST(Cases, HaveEachALibraryThatTheyFindFaultWith) {
    const TolvaneProcess process = runTolvane({"check", "--list", "--json"});
    const auto list = nlohmann::json::parse(process.output);
    std::set<std::string> cases;
    for (const auto& each : list["cases"]) cases.insert(each["name"].get<std::string>());
    std::set<std::string> tried;
    for (const FaultyLibrary& row : faultyLibraries()) tried.insert(row.tried);
    EXPECT_EQ(cases, tried);
    EXPECT_GE(cases.size(), 60u);
}

TEST(Cases, StandInTheDocumentAsTheProgramListsThem) {
    const TolvaneProcess process = runTolvane({"check", "--list", "--json"});
    const auto list = nlohmann::json::parse(process.output);
    std::string listed;
    for (const auto& each : list["cases"])
        listed += "| `" + each["name"].get<std::string>() + "` | " +
                  each["why"].get<std::string>() + " |\n";
    std::istringstream document(readFile(CHECK_DOCUMENT));
    std::string documented;
    for (std::string line; std::getline(document, line);)
        if (line.rfind("| `", 0) == 0) documented += line + "\n";
    EXPECT_EQ(documented, listed);
}

}  // namespace
