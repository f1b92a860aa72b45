// No case finds a mistake in a library that makes none, whatever its types are like.
#include "tests/check/Check.h"

#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;

const std::string kQuickCases = std::string("^(?!") + kDearCases + ")";

// Nothing fails, and there are no warnings but those of these cases.
void expectFit(const Verdicts& verdicts, const std::set<std::string>& warnings) {
    EXPECT_FALSE(verdicts.empty());
    std::set<std::string> warned;
    for (const auto& [name, result] : verdicts)
        if (result["verdict"] == "warning")
            warned.insert(name);
        else
            EXPECT_TRUE(isInOrder(result)) << result;
    EXPECT_EQ(warned, warnings);
}

// What does not look at statuses does not notice every failure of a host.
const std::set<std::string> kUnnoticedFailures{
    "failing-hosts/ports", "failing-hosts/unnoticed-reading", "failing-hosts/unnoticed-writing"};

TEST(FitLibraries, OfPlainCodePassWithoutAWarning) {
    const Verdicts verdicts = check(PLAIN_LIBRARY, kPlainTypes);
    EXPECT_GE(verdicts.size(), 60u);
    expectFit(verdicts, {});
}

// The file of types of the example, whose struct has these members more. The library's own struct
// has not, so `values/carried`, which looks at how big an element is, is no case for it.
const std::string kCasesOfMembers =
    std::string("^(?!values/carried$|") + kDearCases + ")|^failing-hosts/ports";

std::string typesWith(const TemporaryFolder& folder, const std::vector<std::string>& members) {
    auto types = nlohmann::json::parse(readFile(OWN_TYPES));
    auto& all = types["structs"][0]["members"];
    for (const std::string& member : members)
        all.push_back({{"name", "member" + std::to_string(all.size())}, {"type", member}});
    return folder.write("types.json", types.dump());
}

TEST(FitLibraries, SuchAsTheExamplePass) {
    expectFit(check(OWN_TRANSLATION, {"--types", OWN_TYPES}), kUnnoticedFailures);
}

TEST(FitLibraries, PassWithMembersThatGetNoAttribute) {
    const TemporaryFolder folder;
    const std::string types = typesWith(folder, {"float", "array<array<double>>"});
    const Verdicts verdicts = check(OWN_TRANSLATION, only(kCasesOfMembers, {"--types", types}));
    expectFit(verdicts, {"failing-hosts/ports"});
    EXPECT_THAT(verdicts.at("ports/shape").dump(), HasSubstr("no attribute for"));
}

TEST(FitLibraries, PassWithMembersWhoseAttributesAreNoArrays) {
    const TemporaryFolder folder;
    const std::string types =
        typesWith(folder, {"array<bool>", "array<int>", "array<Rigging::Module::Pins>"});
    const Verdicts verdicts = check(OWN_TRANSLATION, only(kCasesOfMembers, {"--types", types}));
    expectFit(verdicts, {"failing-hosts/ports"});
    EXPECT_THAT(verdicts.at("ports/shape").dump(), HasSubstr("no array, as the member is"));
}

TEST(FitLibraries, PassWithATypeThatTheyOnlyRead) {
    const Verdicts verdicts = check(FAULTY_LIBRARY, only(kQuickCases + "|reading$"),
                                    "TOLVANE_TEST_FAULT=reads marks only");
    expectFit(verdicts, {});
    EXPECT_EQ(verdicts.at("values/carried")["verdict"], "passed");
    EXPECT_THAT(verdicts.at("values/carried").dump(),
                HasSubstr("Plain::Mark is read from the host, and not written"));
}

TEST(FitLibraries, PassThatStayOnceTheyAreLoaded) {
    const Verdicts verdicts = check(STAYING_LIBRARY, only("again-and-again"));
    expectFit(verdicts, {});
    EXPECT_THAT(verdicts.at("loading/again-and-again").dump(), HasSubstr("it stays loaded"));
}

// The platform's libraries are not built with it.
TEST(FitLibraries, PassWhenBuiltWithThreadSanitizer) {
    if (std::string(SANITIZED_LIBRARY).empty()) GTEST_SKIP() << "it cannot be built here";
    const Verdicts verdicts =
        check(SANITIZED_LIBRARY, only("^threads/"), "LD_PRELOAD=" SANITIZER_RUNTIME);
    expectFit(verdicts, {});
    EXPECT_EQ(verdicts.at("threads/sanitizer")["verdict"], "passed");
}

}  // namespace
