// `tolvane check` from outside: what it prints for people, and its options.
#include "tests/check/Check.h"
#include "tests/support/TemporaryFolder.h"

#include <chrono>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TolvaneProcess checked(const std::string& only, const std::string& fault,
                       const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments{"check",     FAULTY_LIBRARY, "--types",
                                       PLAIN_TYPES, "--only",       only};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return runTolvane(arguments, "TOLVANE_TEST_FAULT=" + fault);
}

// The command that is printed for the only failure.
std::string commandIn(const std::string& output) {
    constexpr const char* kAgain = "again: ";
    const std::size_t begin = output.find(kAgain);
    if (begin == std::string::npos) return "";
    return output.substr(begin + 7, output.find('\n', begin) - begin - 7);
}

void expectPrinted(const TolvaneProcess& process, int status, const std::string& output) {
    EXPECT_EQ(process.status, status);
    EXPECT_EQ(process.errors, "");
    EXPECT_EQ(process.output, output);
}

TEST(TolvaneCheck, SaysWhatWasDoneWhatWasExpectedAndWhatCame) {
    expectPrinted(checked("^object/names-(once|replace)$", "object/names-once"), 1,
                  "passed    object/names-replace\n"
                  "FAILED    object/names-once\n"
                  "          done: asking for the names\n"
                  "          expected: each name once\n"
                  "          came: \"Plain::Mark\" twice\n"
                  "          again: tolvane check " FAULTY_LIBRARY " --types " PLAIN_TYPES
                  " --only '^object/names-once$' --seed 1\n"
                  "\n2 cases: 1 FAILED, 1 passed.\n");
}

TEST(TolvaneCheck, SaysWhatIsLegalButWillHurt) {
    expectPrinted(checked("^object/(has-a-name|names-once)$", "object/has-a-name"), 0,
                  "passed    object/names-once\n"
                  "warning   object/has-a-name\n"
                  "          it has no name to be shown to people\n"
                  "\n2 cases: 1 passed, 1 warning.\n");
}

TEST(TolvaneCheck, ShowsTheFailedCasesAloneIfAsked) {
    const TolvaneProcess process =
        checked("^object/names-(once|replace)$", "object/names-once", {"--failed"});
    EXPECT_EQ(process.status, 1);
    EXPECT_THAT(process.output,
                AllOf(StartsWith("FAILED    object/names-once\n"), Not(HasSubstr("names-replace")),
                      EndsWith("\n2 cases: 1 FAILED, 1 passed.\n")));
}

TEST(TolvaneCheck, TellsOfTheFailedCasesAloneInJsonTooIfAsked) {
    const TolvaneProcess process =
        checked("^object/names-(once|replace)$", "object/names-once", {"--failed", "--json"});
    EXPECT_EQ(process.status, 1);
    const auto report = nlohmann::json::parse(process.output);
    ASSERT_EQ(report["cases"].size(), 1U);
    EXPECT_EQ(report["cases"][0]["name"], "object/names-once");
    EXPECT_EQ(report["passed"], 1);
    EXPECT_EQ(report["failed"], 1);
    EXPECT_EQ(report["ok"], false);
}

TEST(TolvaneCheck, RepeatsACaseWithTheLimitsThatWereSet) {
    const auto again = [](const std::vector<std::string>& limits) {
        return commandIn(checked("^object/names-once$", "object/names-once", limits).output);
    };
    EXPECT_THAT(again({"--time-limit=50"}), EndsWith(" --seed 1 --time-limit 50"));
    EXPECT_THAT(again({"--time-limit", "50", "--memory-limit", "0.3"}),
                EndsWith(" --seed 1 --memory-limit 0.3 --time-limit 50"));
}

TEST(TolvaneCheck, PrintsTheCommandThatRepeatsAFailureWithItsData) {
    const TolvaneProcess first = checked("^values/carried$", "values/carried", {"--seed", "7"});
    const std::string command = commandIn(first.output);
    EXPECT_THAT(command, EndsWith(" --seed 7"));
    const TemporaryFolder folder;
    const std::string path = std::string(TOLVANE).substr(0, std::string(TOLVANE).rfind('/'));
    const std::string line = "PATH=" + quoted(path) + ":$PATH TOLVANE_TEST_FAULT=values/carried " +
                             command + " >" + quoted(folder.path("out"));
    EXPECT_EQ(WEXITSTATUS(std::system(line.c_str())), 1);
    EXPECT_EQ(readFile(folder.path("out")), first.output);
}

TEST(TolvaneCheck, GeneratesOtherDataForAnotherSeed) {
    const auto came = [](const char* seed) {
        const std::string output =
            checked("^values/carried$", "values/carried", {"--seed", seed}).output;
        return output.substr(0, output.find("again: "));
    };
    EXPECT_NE(came("1"), came("2"));
}

TEST(TolvaneCheck, ListsEachCaseWithItsReason) {
    const TolvaneProcess process = runTolvane({"check", "--list", "--only", "names-once"});
    EXPECT_EQ(process.status, 0);
    EXPECT_EQ(process.output,
              "object/names-once\n    A type that is named twice is listed and tried twice.\n");
}

TEST(TolvaneCheck, TriesAsManyCasesAtOnceAsItIsAskedTo) {
    // What the cases take, beside what all takes.
    const auto triedBy = [](const char* jobs) {
        const auto begin = std::chrono::steady_clock::now();
        const Verdicts verdicts = check(FAULTY_LIBRARY,
                                        only("^object/names-(not-empty|once|replace)$",
                                             {"--types", PLAIN_TYPES, "--jobs", jobs}),
                                        "TOLVANE_TEST_FAULT=loading/quickly");
        const std::chrono::duration<double> whole = std::chrono::steady_clock::now() - begin;
        double cases = 0;
        for (const auto& [name, result] : verdicts) cases += result["seconds"].get<double>();
        return cases / whole.count();
    };
    EXPECT_LT(triedBy("1"), 1);
    EXPECT_GT(triedBy("3"), 1);
}

TEST(TolvaneCheck, TellsOfCasesInTheirOrderHoweverManyAreTriedAtOnce) {
    const std::string one = checked("^object/", "", {"--jobs", "1"}).output;
    EXPECT_EQ(checked("^object/", "", {"--jobs", "4"}).output, one);
}

TEST(TolvaneCheck, EndsACaseThatMakesNoProgress) {
    const TolvaneProcess process =
        checked("^object/(names-once|port-changes)$", "hangs", {"--time-limit", "1"});
    EXPECT_EQ(process.status, 1);
    EXPECT_THAT(process.output, AllOf(HasSubstr("passed    object/names-once"),
                                      HasSubstr("done: telling it that a port was removed"),
                                      HasSubstr("makes no progress for 1 s\n")));
}

TEST(TolvaneCheck, SaysInOneLineWhatItIsNotAskedRightly) {
    const struct {
        std::vector<std::string> arguments;
        const char* line;
    } rows[] = {
        {{"check"}, "check: the library to be checked is missing"},
        {{"check", PLUGIN, "--only", "("}, "--only \"(\": is not a regular expression"},
        {{"check", PLUGIN, "--only", "no such"}, "--only \"no such\": matches the name of no case"},
        {{"check", "/nowhere.so"}, "/nowhere.so: there is no such file"},
        {{"check", PLAIN_TYPES}, PLAIN_TYPES ": cannot be loaded as a library: it is no ELF file"},
    };
    for (const auto& row : rows) {
        const TolvaneProcess process = runTolvane(row.arguments);
        EXPECT_EQ(process.status, 2) << row.line;
        EXPECT_EQ(process.output, "") << row.line;
        EXPECT_THAT(process.errors, StartsWith(std::string("tolvane: ") + row.line));
        EXPECT_EQ(process.errors.find('\n'), process.errors.size() - 1) << row.line;
    }
}

TEST(TolvaneCheck, SaysThatALibraryWasNotCheckedWhichDoesNotLoad) {
    const TolvaneProcess process =
        runTolvane({"check", LIBRARY_WITH_UNDEFINED_SYMBOL, "--only", "^values/carried$"});
    EXPECT_EQ(process.status, 2);
    EXPECT_THAT(process.output, HasSubstr("skipped   values/carried"));
    EXPECT_THAT(process.errors, HasSubstr("cannot be checked, for it cannot be loaded"));
}

TEST(TolvaneCheck, SaysWhichRuntimeASanitizedLibraryNeeds) {
    if (std::string(SANITIZED_LIBRARY).empty()) GTEST_SKIP() << "it cannot be built here";
    const TolvaneProcess process =
        runTolvane({"check", SANITIZED_LIBRARY, "--only", "loads|carried"});
    EXPECT_EQ(process.status, 2);
    EXPECT_THAT(process.output,
                AllOf(HasSubstr("skipped   loading/loads"), HasSubstr("LD_PRELOAD="),
                      HasSubstr("2 cases: 0 passed, 2 skipped.")));
}

TEST(TolvaneCheck, RepeatsACaseWithWhatWasPreloaded) {
    if (std::string(RACING_LIBRARY).empty()) GTEST_SKIP() << "it cannot be built here";
    const TolvaneProcess process =
        runTolvane({"check", RACING_LIBRARY, "--types", PLAIN_TYPES, "--only", "threads/sanitizer"},
                   "LD_PRELOAD=" SANITIZER_RUNTIME);
    EXPECT_THAT(commandIn(process.output), StartsWith("LD_PRELOAD=" SANITIZER_RUNTIME " tolvane "));
}

}  // namespace
