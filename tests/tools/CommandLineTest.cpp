// `tolvane` from outside, as far as it is the same for every command.
#include "tests/support/TolvaneProcess.h"

#include <algorithm>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;

TEST(TolvaneCommandLine, PrintsItsHelp) {
    const TolvaneProcess process = runTolvane({"--help"});
    EXPECT_EQ(process.status, 0);
    EXPECT_EQ(process.errors, "");
    EXPECT_THAT(process.output, HasSubstr("tolvane"));
    for (const char* command : {"\n  run ", "\n  info "})
        EXPECT_THAT(process.output, HasSubstr(command));
}

TEST(TolvaneCommandLine, PrintsHelpThatFitsAScreen) {
    for (const char* command : {"", "run", "check", "inspect", "trace", "show"}) {
        std::vector<std::string> arguments{"--help"};
        if (*command) arguments.insert(arguments.begin(), command);
        const std::string help = runTolvane(arguments).output;
        EXPECT_LE(std::count(help.begin(), help.end(), '\n'), 50) << command;
        std::istringstream lines(help);
        for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 80U) << line;
    }
    const std::string help = runTolvane({"--help"}).output;
    EXPECT_LE(std::count(help.begin(), help.end(), '\n'), 24);
}

TEST(TolvaneCommandLine, PrintsItsVersion) {
    for (const char* option : {"-V", "--version"}) {
        const TolvaneProcess process = runTolvane({option});
        EXPECT_EQ(process.status, 0);
        EXPECT_EQ(process.errors, "");
        EXPECT_EQ(process.output, "tolvane 2.11.0.0\n");
    }
}

TEST(TolvaneCommandLine, RefusesAMissingCommand) {
    const TolvaneProcess process = runTolvane({});
    EXPECT_EQ(process.status, 2);
    EXPECT_EQ(process.output, "");
    EXPECT_EQ(process.errors,
              "tolvane: a command is missing; \"tolvane run\" runs the bundled example\n");
}

TEST(TolvaneCommandLine, RefusesAnUnknownCommandAndNamesTheHelp) {
    const TolvaneProcess process = runTolvane({"walk"});
    EXPECT_EQ(process.status, 2);
    EXPECT_EQ(process.output, "");
    EXPECT_THAT(process.errors, HasSubstr("not expected: walk"));
    EXPECT_THAT(process.errors, HasSubstr("(try \"tolvane --help\")\n"));
}

TEST(TolvaneCommandLine, NamesTheHelpOfTheCommandWhoseOptionIsUnknown) {
    const TolvaneProcess process = runTolvane({"run", "--fast"});
    EXPECT_EQ(process.status, 2);
    EXPECT_THAT(process.errors, HasSubstr("not expected: --fast"));
    EXPECT_THAT(process.errors, HasSubstr("(try \"tolvane run --help\")\n"));
}

}  // namespace
