// What a person sees of `tolvane run`, in a terminal and elsewhere.

#include "tests/tools/FittingLines.h"
#include "tests/tools/Terminal.h"
#include "tests/tools/TolvaneRun.h"
#include "tools/report/ProgressBar.h"
#include "tools/support/OneLine.h"

#include <filesystem>
#include <map>
#include <regex>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class TolvaneRunText : public TolvaneRun {
protected:
    TolvaneProcess runFaulty(const std::string& fault, std::vector<std::string> further = {}) {
        further.insert(further.begin(), {"run", rig(), "--plugin", FAULTY_LIBRARY});
        return runTolvane(further, "TOLVANE_TEST_FAULT=" + fault);
    }
};

TEST_F(TolvaneRunText, ShowsBothValuesOfAWrongNumberAndWhereItIs) {
    EXPECT_THAT(runFaulty("writes a wrong number", {"--frames", "1:2"}).output,
                HasSubstr("\n2 mismatches:\n"
                          "  Rigging::Module::Pins\n"
                          "    frame 1: outPins.matrices[0] differs in row 3, column 1\n"
                          "        went in     10\n"
                          "        came back   10.25\n"
                          "        difference  0.25\n"
                          "    frame 2: outPins.matrices[0] differs in row 3, column 1\n"));
}

TEST(TolvaneRunHelp, SaysWhichNodesAreJointsInTheWordsOfTheReadme) {
    const std::string help = oneLine(runTolvane({"run", "--help"}).output);
    const std::string readme = oneLine(readFile(README));
    for (const std::string begin : {"Joints are the bones of", "Of several it is"}) {
        const std::size_t from = readme.find(begin);
        ASSERT_NE(from, std::string::npos) << begin;
        EXPECT_THAT(help, HasSubstr(readme.substr(from, readme.find('.', from) - from) + "."));
    }
}

TEST_F(TolvaneRunText, ShowsTheFirstTenMismatchesAndTheCount) {
    const std::string output = runFaulty("writes only once").output;
    EXPECT_THAT(output,
                AllOf(HasSubstr("\nThe first 10 of 30 mismatches:\n"),
                      HasSubstr("frame 1: outPins.names[0] was not written\n"
                                "        went in     \"Hips\"\n"),
                      HasSubstr("frame 1: outPins.matrices[4] was not written\n        went in     "
                                "1 0 0 0, 0 1 0 0, 0 0 1 0, 0 9 0 1\n\nFAILED: "),
                      EndsWith(" values: 30 mismatches.\n")));
    EXPECT_THAT(output, Not(HasSubstr("came back ")));
}

TEST_F(TolvaneRunText, BeginsAndEndsWithTheVerdict) {
    const std::string passed = runTolvane({"run", rig()}).output;
    const std::string failed = runFaulty("writes a wrong name").output;
    for (const auto& [output, word] :
         {std::pair(passed, "PASSED: "), std::pair(failed, "FAILED: ")}) {
        const std::string verdict = output.substr(0, output.find('\n') + 1);
        EXPECT_THAT(verdict, testing::StartsWith(word));
        EXPECT_THAT(output, EndsWith("\n\n" + verdict));
        EXPECT_THAT(output, HasSubstr(verdict + "\nLibrary  "));
    }
}

TEST_F(TolvaneRunText, ShowsTheFirstMismatchOfEachOtherType) {
    const std::string output = runFaulty("writes nothing anywhere").output;
    EXPECT_THAT(
        output,
        AllOf(HasSubstr("\nThe first 10 of "), HasSubstr("\nThe first of each other type:\n"),
              HasSubstr("\n  array<Rigging::Module::Pins>, frame 0: outPinsArray: has another"
                        " number of\n    elements: 4 went in, 0 came back\n")));
    expectLinesThatFit(output);
}

TEST_F(TolvaneRunText, FailsForATypeThatIsNamedTooLateToBeTried) {
    const TolvaneProcess process = runFaulty("names a type later");
    EXPECT_EQ(process.status, 1);
    EXPECT_THAT(process.output,
                AllOf(HasSubstr("\nNot tried, for the library named it only after the run had "
                                "begun: Late::Type\n"),
                      EndsWith(": 1 type not tried.\n")));
}

// Names as long as files and types may have.
TEST_F(TolvaneRunText, FitsItsLinesWhateverLibrariesAndRigsAreCalled) {
    namespace fs = std::filesystem;
    const std::string longName(120, 'a'), wide = "左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕";
    fs::create_directory(folder.path(longName));
    const std::string file = folder.write(longName + "/" + wide + wide + ".bvh", sampleBvh());
    const std::string library = folder.path(longName + ".so");
    fs::copy_file(STUDIO_LIBRARY, library);
    const std::string types = folder.write("types.json", R"({"structs": [
        {"name": "Studio::Face", "members": [{"name": ")" + longName +
                                                             R"(", "type": "string"}]},
        {"name": "Absent::Face", "members": [{"name": "pins", "type": ")" +
                                                             longName + R"("}]},
        {"name": ")" + longName + R"(", "members": [{"name": "a", "type": "float"}]},
        {"name": "Spare::)" + longName + R"(", "members": []}]})");
    for (const char* more : {"--verbose", "--churn"}) {
        const TolvaneProcess process =
            runTolvane({"run", file, "--plugin", library, "--types", types, more});
        EXPECT_EQ(process.status, 1);
        EXPECT_THAT(process.output, HasSubstr("Described, but not carried by the library:"));
        EXPECT_THAT(process.output, HasSubstr("FAILED: "));
        expectLinesThatFit(process.output);
    }
    expectLinesThatFit(runTolvane({"run", "--verbose"}).output);
}

TEST_F(TolvaneRunText, NamesTypesAndPortsOnlyIfAskedTo) {
    const std::string brief = runTolvane({"run", rig()}).output;
    EXPECT_THAT(brief, AllOf(HasSubstr("\"Rigging Translation Table\", 14 types\n"),
                             Not(HasSubstr("inPins"))));
    EXPECT_THAT(
        runTolvane({"run", rig(), "--verbose"}).output,
        AllOf(HasSubstr("\n           Rigging::Module::Pins (3 attributes)\n"),
              HasSubstr("28 ports added:\n"), HasSubstr(" inPins,"), HasSubstr("y is up, ")));
}

TEST_F(TolvaneRunText, PrintsNothingIfQuietButTheVerdictOfAFailure) {
    for (const char* option : {"-q", "--quiet"}) {
        const TolvaneProcess passed = runTolvane({"run", rig(), option});
        EXPECT_EQ(passed.status, 0);
        EXPECT_EQ(passed.output + passed.errors, "");
        const TolvaneProcess failed = runFaulty("writes a wrong name", {option});
        EXPECT_EQ(failed.status, 1);
        EXPECT_THAT(failed.output,
                    testing::MatchesRegex("FAILED: 4 evaluations, .* values: 4 mismatches.\n"));
        EXPECT_EQ(failed.errors, "");
    }
    EXPECT_EQ(printedInTerminal(80, {"run", "-q"}), "") << "no progress either";
    EXPECT_THAT(runTolvane({"run", rig(), "-q", "--json"}).output, HasSubstr("\"ok\": true"));
    EXPECT_EQ(runTolvane({"run", rig(), "-q", "--verbose"}).status, 2);
}

TEST_F(TolvaneRunText, IsColouredInTerminalsAlone) {
    const std::string file = rig();
    EXPECT_THAT(printedInTerminal(80, {"run", file}),
                AllOf(HasSubstr("\033[32mPASSED: "), HasSubstr("went in.\033[0m\r\n\r\nLibrary")));
    EXPECT_THAT(printedInTerminal(80, {"run", file}, {"NO_COLOR="}), HasSubstr("\033[32mPASSED: "));
    EXPECT_THAT(printedInTerminal(80, {"run", file, "--plugin", FAULTY_LIBRARY},
                                  {"TOLVANE_TEST_FAULT=writes a wrong name"}),
                AllOf(HasSubstr("\033[1;31mFAILED: "), HasSubstr(" \033[1;31m4\033[0m\r\n")));
    EXPECT_THAT(runTolvane({"run", file}).output, Not(HasSubstr("\033")));
    for (const char* setting : {"NO_COLOR=1", "NO_COLOR=0", "TERM=dumb"})
        EXPECT_THAT(printedInTerminal(80, {"run", file}, {setting}),
                    AllOf(HasSubstr("PASSED: "), Not(HasSubstr("mPASSED"))))
            << setting;
    EXPECT_THAT(printedInTerminal(80, {"run", file, "--json"}), Not(HasSubstr("\033[3")));
}

// Long enough that somebody sees it.
TEST_F(TolvaneRunText, ShowsProgressThatFitsTheTerminal) {
    const std::vector<std::string> arguments{"run", rig(), "--fps", "2500"};
    for (const auto& [columns, bar] :
         std::map<unsigned short, const char*>{{80, "\r\033\\[K\\[=[= ]{39}\\] [0-9]+ %\r"},
                                               {20, "\r\033\\[K\\[=[= ]{10}\\] [0-9]+ %\r"},
                                               {10, "\r\033\\[K[0-9]+ %\r"},
                                               {0, "\r\033\\[K\\[=[= ]{39}\\] [0-9]+ %\r"}})
        EXPECT_TRUE(std::regex_search(printedInTerminal(columns, arguments), std::regex(bar)))
            << columns;
    EXPECT_THAT(printedInTerminal(5, arguments), Not(HasSubstr("\033[K")));
}

TEST(ProgressBar, NeverReachesTheLastColumn) {
    for (std::size_t columns = 0; columns < 100; ++columns)
        for (const std::size_t done : {0U, 1U, 500U, 999U, 1000U}) {
            const std::string line = progressLine(done, 1000, columns);
            EXPECT_LT(line.size(), std::max<std::size_t>(columns, 1)) << columns;
            EXPECT_EQ(line.empty(), columns < 6) << columns;
        }
}

}  // namespace
