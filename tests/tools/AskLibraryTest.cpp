#include "tools/commands/AskLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace {

using namespace Tolvane::Tools;
using End = Outcome::End;
using testing::StartsWith;

std::string processorTimeAllowed() {
    rlimit limit{};
    getrlimit(RLIMIT_CPU, &limit);
    return std::to_string(limit.rlim_cur) + " of " + std::to_string(limit.rlim_max);
}

// However much is asked for: the limit is that of whoever reads a rig.
TEST(AskLibrary, SetsNoLimitOfProcessorTime) {
    Limits limits;
    limits.processorTime = 1;
    testing::internal::CaptureStdout();
    askLibrary(PLUGIN, limits, [](auto&, ChildSide&) {
        return LibraryAnswer{true, processorTimeAllowed()};
    });
    EXPECT_EQ(testing::internal::GetCapturedStdout(), processorTimeAllowed());
}

struct Downfall {
    const char* name;
    End end;
    Stage stage;
    // Empty where the library is at fault.
    const char* others;
};

const std::vector<Downfall> kDownfalls{
    {"MemoryForTheData", End::OutOfMemory, Stage::Usage, "what is asked for takes more than "},
    {"TimeForTheData", End::OutOfTime, Stage::Usage, "what is asked for takes more than "},
    {"SilenceOverTheData", End::Silent, Stage::Usage, "what is asked for makes no progress "},
    {"MemoryForTheReport", End::OutOfMemory, Stage::Reporting, "the report takes more than "},
    {"TimeForTheReport", End::OutOfTime, Stage::Reporting, "the report takes more than "},
    {"SilenceOverTheReport", End::Silent, Stage::Reporting, "the report makes no progress "},
    {"LengthOfTheReport", End::AnsweredTooMuch, Stage::Reporting, "the report answers with more "},
    {"CrashOverTheReport", End::Killed, Stage::Reporting, ""},
    {"MemoryOfAnEvaluation", End::OutOfMemory, Stage::Evaluating, ""},
    {"TimeOfAnEvaluation", End::OutOfTime, Stage::Evaluating, ""},
    {"SilenceOfAnEvaluation", End::Silent, Stage::Evaluating, ""},
};

class DownfallOfALibrary : public testing::TestWithParam<Downfall> {};

INSTANTIATE_TEST_SUITE_P(Each, DownfallOfALibrary, testing::ValuesIn(kDownfalls),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_P(DownfallOfALibrary, IsNotWhatTheProgramItselfTakes) {
    Outcome outcome;
    outcome.end = GetParam().end;
    outcome.place.stage = GetParam().stage;
    const Error error = downfall("some.so", outcome);
    const std::string others = GetParam().others;
    EXPECT_EQ(error.file(), others.empty() ? "some.so" : "");
    EXPECT_EQ(error.status(), others.empty() ? 1 : 2);
    EXPECT_THAT(error.what(), StartsWith(others.empty() ? "some.so: " : others));
}

}  // namespace
