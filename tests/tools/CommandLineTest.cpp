// `tolvane` from outside, as far as it is the same for every command.
#include "tests/tools/TolvaneProcess.h"

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
