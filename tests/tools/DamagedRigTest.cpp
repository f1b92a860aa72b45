// `tolvane run` on damaged files of every format: whatever a reader makes of them, the program ends
// in time and orderly, and its picture is either whole or not there. What `tolvane info` tells of
// them is whole too, or they are refused.
//
// Each kind of damage is done to each rig with the seeds 2 and 3, or with the seeds A to B if
// TOLVANE_BAD_RIGS=A:B is in the environment: 1:26 damages 2080 files. How they ended is printed.
// With others, such as 1, a reader runs for ever, which takes its time.
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TolvaneProcess.h"
#include "tests/tools/Damage.h"
#include "tests/tools/RigFormats.h"
#include "tools/report/InfoReport.h"
#include "tools/rig/FrameRange.h"
#include "tools/rig/LoadRig.h"
#include "tools/rig/ReadRig.h"
#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <stdlib.h>

namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
using Tolvane::Tools::oneLine;

constexpr const char* kFormerPicture = "<svg>the picture of another run</svg>";

Tolvane::Tools::FrameRange seeds() {
    const char* asked = std::getenv("TOLVANE_BAD_RIGS");
    return Tolvane::Tools::parseFrameRange(asked ? asked : "2:3");
}

// Keeps a file that the test fails on, with the files that it refers to, in a new folder. Returns
// the command that runs it again.
std::string kept(const std::string& file, const std::string& name) {
    std::string pattern = (fs::temp_directory_path() / ("tolvane-" + name + ".XXXXXX")).string();
    if (!mkdtemp(pattern.data())) return "no folder could be made to keep " + name;
    const fs::path place = pattern;
    fs::copy(fs::path(file).parent_path(), place);
    return "Run it again: " TOLVANE " run " + quoted((place / fs::path(file).filename()).string()) +
           " --frames 0:0 --churn --svg " + quoted((place / "picture.svg").string());
}

void expectWholePicture(const std::string& picture) {
    EXPECT_THAT(picture, StartsWith("<svg "));
    EXPECT_THAT(picture, EndsWith("</svg>\n"));
}

void expectOneLine(const std::string& errors, const std::string& file) {
    EXPECT_THAT(errors, StartsWith("tolvane: " + file + ": "));
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
}

// How many files ended in which way.
std::map<std::string, std::size_t> s_endings;

// What a damaged file led to, as far as it is the same for many files.
std::string endingOf(const TolvaneProcess& run) {
    if (run.status == 0) return "carried nevertheless";
    const std::size_t reader = run.errors.find(": its reader ");
    return reader == std::string::npos ? "refused" : run.errors.substr(reader + 2);
}

void runDamaged(const std::string& file) {
    const TemporaryFolder pictures;
    const std::string picture = pictures.write("picture.svg", kFormerPicture);
    // Only one frame: the damage may have turned the number of frames into a million. The limits
    // are low, for what reaches them is told alike.
    const TolvaneProcess run = runTolvane({"run", file, "--frames", "0:0", "--churn", "--svg",
                                           picture, "--time-limit", "4", "--memory-limit", "1"});
    ++s_endings[oneLine(endingOf(run))];
    EXPECT_THAT(run.status, AnyOf(0, 2)) << run.errors;
    EXPECT_EQ(pictures.fileCount(), 1U) << "something was left beside the picture";
    if (run.status == 0) {
        EXPECT_EQ(run.errors, "");
        expectWholePicture(readFile(picture));
    } else {
        expectOneLine(run.errors, file);
        EXPECT_EQ(readFile(picture), kFormerPicture);
    }
}

// As `tolvane info` does, but for the limits, which are low.
void tellOfDamaged(const std::string& file) {
    Tolvane::Tools::Limits limits;
    limits.memory = std::size_t{1} << 30;
    limits.processorTime = 2;
    std::string ending = "told of nevertheless";
    try {
        const Tolvane::Tools::RigInfo info = Tolvane::Tools::readInfo(file, {}, limits);
        std::ostringstream report, json;
        printInfo(report, info);
        printInfoAsJson(json, info);
        EXPECT_THAT(report.str(), HasSubstr("\nJoints "));
        EXPECT_EQ(nlohmann::json::parse(json.str())["joints"]["count"], info.joints);
    } catch (const Tolvane::Tools::Error& error) {
        const std::string line = error.what();
        EXPECT_THAT(line, StartsWith(file + ": "));
        const std::size_t reader = line.find(": its reader ");
        ending = "not told of: " +
                 (reader == std::string::npos ? "refused" : oneLine(line.substr(reader + 2)));
    }
    ++s_endings[ending];
}

class TolvaneRunOnUndamagedRig : public testing::TestWithParam<RigFormat> {};

std::string nameOfFormat(const testing::TestParamInfo<RigFormat>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(EachFormat, TolvaneRunOnUndamagedRig, testing::ValuesIn(rigFormats()),
                         nameOfFormat);

// If an undamaged file were refused, the refusal of damaged ones would show nothing.
TEST_P(TolvaneRunOnUndamagedRig, ReadsWhatTheReaderOfItsFormatCan) {
    const TemporaryFolder folder;
    const std::string file = writeExample(GetParam(), folder.path(""));
    EXPECT_EQ(runTolvane({"run", file}).status, 0);
    const bool moves = GetParam().readAgain == RigFormat::Readable::Motion;
    EXPECT_EQ(Tolvane::Tools::loadRig(file).frameCount > 1, moves);
}

class TolvaneRunOnDamagedRig : public testing::TestWithParam<std::tuple<RigFormat, Damage>> {
public:
    static void TearDownTestSuite() {
        for (const auto& [ending, count] : s_endings)
            std::cout << "Damaged files: " << count << " " << ending << "\n";
    }
};

std::string nameOfCase(const testing::TestParamInfo<TolvaneRunOnDamagedRig::ParamType>& info) {
    const auto& [format, damage] = info.param;
    return std::string(format.name) + damage.name;
}

INSTANTIATE_TEST_SUITE_P(EachDamage, TolvaneRunOnDamagedRig,
                         testing::Combine(testing::ValuesIn(rigFormats()),
                                          testing::ValuesIn(damages())),
                         nameOfCase);

TEST_P(TolvaneRunOnDamagedRig, EitherSucceedsOrRefusesIt) {
    const auto& [format, damage] = GetParam();
    const TemporaryFolder folder;
    const std::string file = writeExample(format, folder.path(""));
    const std::string whole = readFile(file);
    const Tolvane::Tools::FrameRange range = seeds();
    for (std::size_t seed = range.first; seed <= range.last; ++seed) {
        std::string content = whole;
        damage.inflict(content, static_cast<std::uint32_t>(seed));
        folder.write(fs::path(file).filename().string(), content);
        runDamaged(file);
        tellOfDamaged(file);
        if (HasFailure())
            FAIL() << kept(file, std::string(format.name) + damage.name + std::to_string(seed));
    }
}

}  // namespace
