// No case finds a mistake in a library that makes none, whatever its types are like.
#include "tests/check/Check.h"

#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;
using Names = std::set<std::string>;

const std::string kQuickCases = std::string("^(?!") + kDearCases + ")";

const Names kOfTheSanitizer{"threads/sanitizer"};

// Nothing fails, these cases warn, and these are not tried.
void expectFit(const Verdicts& verdicts, const Names& warnings,
               const Names& skipped = kOfTheSanitizer) {
    EXPECT_FALSE(verdicts.empty());
    for (const auto& [name, result] : verdicts) EXPECT_NE(result["verdict"], "failed") << result;
    EXPECT_EQ(casesOf(verdicts, "warning"), warnings);
    EXPECT_EQ(casesOf(verdicts, "skipped"), skipped);
}

// What does not look at statuses does not notice every failure of a host.
const Names kUnnoticedFailures{"failing-hosts/ports", "failing-hosts/unnoticed-reading",
                               "failing-hosts/unnoticed-writing"};

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

// What needs no type is tried, and all else is skipped.
TEST(FitLibraries, PassWhoseTypesTheGraphDoesNotKnow) {
    const Verdicts verdicts = check(OWN_TRANSLATION, {});
    const Names passed{"loading/exports-nothing-else",
                       "loading/factory",
                       "loading/loads",
                       "loading/needs-what-is-there",
                       "loading/quickly",
                       "object/has-a-name",
                       "object/names-from-eight-threads",
                       "object/names-not-empty",
                       "object/names-once",
                       "object/names-replace",
                       "object/release-frees",
                       "object/two-factories",
                       "ports/foreign-type",
                       "thrift/names"};
    const Names warnings{"object/names-known"};
    EXPECT_EQ(casesOf(verdicts, "passed"), passed);
    EXPECT_EQ(casesOf(verdicts, "warning"), warnings);
    EXPECT_EQ(casesOf(verdicts, "skipped").size(),
              verdicts.size() - passed.size() - warnings.size());
    EXPECT_EQ(toldBy(verdicts.at("values/carried")),
              "\nit names no type that the graph knows (see --types)");
}

TEST(FitLibraries, PassThatStayOnceTheyAreLoaded) {
    const Verdicts verdicts = check(STAYING_LIBRARY, only("again-and-again"));
    expectFit(verdicts, {}, {});
    EXPECT_THAT(verdicts.at("loading/again-and-again").dump(), HasSubstr("it stays loaded"));
}

// The platform's libraries are not built with it.
TEST(FitLibraries, PassWhenBuiltWithThreadSanitizer) {
    if (std::string(SANITIZED_LIBRARY).empty()) GTEST_SKIP() << "it cannot be built here";
    const Verdicts verdicts =
        check(SANITIZED_LIBRARY, only("^threads/"), "LD_PRELOAD=" SANITIZER_RUNTIME);
    expectFit(verdicts, {}, {});
    EXPECT_EQ(verdicts.at("threads/sanitizer")["verdict"], "passed");
}

}  // namespace
