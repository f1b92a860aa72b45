// `tolvane run` on damaged files of every format: whatever a reader makes of them, the program ends
// in time and orderly, and a picture is there whole or not at all.
//
// TOLVANE_BAD_RIGS=A:B in the environment takes the seeds A to B for each kind of damage to each
// format, not the few that are taken without.
#include "tests/tools/Damage.h"
#include "tests/tools/RigFormats.h"
#include "tests/tools/TemporaryFolder.h"
#include "tests/tools/TolvaneProcess.h"
#include "tools/rig/FrameRange.h"
#include "tools/rig/LoadRig.h"

#include <cstdlib>
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using testing::EndsWith;
using testing::StartsWith;

constexpr const char* kFormerPicture = "the picture of another run";

Tolvane::Tools::FrameRange seeds() {
    const char* asked = std::getenv("TOLVANE_BAD_RIGS");
    return Tolvane::Tools::parseFrameRange(asked ? asked : "1:10");
}

// Keeps a file that made trouble, and what belongs to it, and tells how to see the trouble again.
std::string kept(const std::string& file, const std::string& name) {
    const fs::path place = fs::temp_directory_path() / "tolvane-bad-rigs" / name;
    fs::remove_all(place);
    fs::create_directories(place.parent_path());
    fs::copy(fs::path(file).parent_path(), place);
    return "See it again: " TOLVANE " run " + quoted((place / fs::path(file).filename()).string()) +
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

void runDamaged(const std::string& file) {
    const TemporaryFolder pictures;
    const std::string picture = pictures.write("picture.svg", kFormerPicture);
    // A file may have come to announce a million frames.
    const TolvaneProcess run =
        runTolvane({"run", file, "--frames", "0:0", "--churn", "--svg", picture});
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

class RigFormats : public testing::TestWithParam<RigFormat> {};

std::string nameOfFormat(const testing::TestParamInfo<RigFormat>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Format, RigFormats, testing::ValuesIn(rigFormats()), nameOfFormat);

// Otherwise the damaged ones would all be refused for what the undamaged one lacks.
TEST_P(RigFormats, AnUndamagedFileIsReadIfItsReaderTakesIt) {
    const TemporaryFolder folder;
    const std::string file = writeExample(GetParam(), folder.path(""));
    const bool isRead = GetParam().readAgain != RigFormat::Readable::Nothing;
    EXPECT_EQ(runTolvane({"run", file}).status, isRead ? 0 : 2);
    if (!isRead) return;
    const bool moves = GetParam().readAgain == RigFormat::Readable::Motion;
    EXPECT_EQ(Tolvane::Tools::loadRig(file).frameCount > 1, moves);
}

class BadRig : public testing::TestWithParam<std::tuple<RigFormat, Damage>> {};

std::string nameOfCase(const testing::TestParamInfo<BadRig::ParamType>& info) {
    const auto& [format, damage] = info.param;
    return std::string(format.name) + damage.name;
}

INSTANTIATE_TEST_SUITE_P(Damaged, BadRig,
                         testing::Combine(testing::ValuesIn(rigFormats()),
                                          testing::ValuesIn(damages())),
                         nameOfCase);

TEST_P(BadRig, IsRunOrRefused) {
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
        if (HasFailure())
            FAIL() << kept(file, std::string(format.name) + damage.name + std::to_string(seed));
    }
}

}  // namespace
