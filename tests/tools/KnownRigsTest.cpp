// Rigs of many kinds whose contents are known otherwise than by reading them: known_rigs/ has the
// script that makes them and says what is in them.
#include "tests/support/TemporaryFolder.h"
#include "tools/node/RigFrame.h"
#include "tools/rig/LoadRig.h"
#include "tools/rig/RigInfo.h"

#include <algorithm>
#include <cmath>
#include <ostream>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using namespace Tolvane::Tools;
using Json = nlohmann::ordered_json;

// Of the sizes of what is read in single precision and turned several times.
constexpr double kTolerance = 2e-5;

struct Expectation {
    Json of;
};

void PrintTo(const Expectation& expectation, std::ostream* out) { *out << expectation.of["file"]; }

std::vector<Expectation> knownRigs() {
    const std::string text = readFile(std::string(KNOWN_RIGS) + "/expectations.json");
    std::vector<Expectation> expectations;
    for (const Json& rig : Json::parse(text)) expectations.push_back({rig});
    return expectations;
}

std::string nameOf(const testing::TestParamInfo<Expectation>& info) {
    std::string name = info.param.of["file"];
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

class KnownRig : public testing::TestWithParam<Expectation> {
protected:
    const Json& expected = GetParam().of;
    const std::string path = std::string(KNOWN_RIGS) + "/" + expected["file"].get<std::string>();

    void expectWorld(unsigned upAxis, std::optional<double> metresPerUnit) const {
        EXPECT_EQ(std::string(1, "xyz"[upAxis]), expected["upAxis"]);
        ASSERT_EQ(metresPerUnit.has_value(), !expected["metresPerUnit"].is_null());
        if (!metresPerUnit) return;
        EXPECT_NEAR(*metresPerUnit, expected["metresPerUnit"].get<double>(), 1e-7);
    }
};

INSTANTIATE_TEST_SUITE_P(Each, KnownRig, testing::ValuesIn(knownRigs()), nameOf);

TEST_P(KnownRig, HasItsJoints) {
    const Rig rig = loadRig(path);
    EXPECT_EQ(rig.hasSkeleton, expected["hasSkeleton"]);
    Json joints = Json::array();
    for (const Joint& joint : rig.joints)
        joints.push_back(
            {{"name", joint.name}, {"parent", joint.parent ? Json(*joint.parent) : Json()}});
    EXPECT_EQ(joints, expected["joints"]);
    for (std::size_t i = 0; i < expected["weights"].size(); ++i)
        EXPECT_NEAR(rig.joints[i].weight, expected["weights"][i].get<double>(), kTolerance) << i;
    expectWorld(rig.upAxis, rig.metresPerUnit);
}

TEST_P(KnownRig, HasItsFrames) {
    const Rig rig = loadRig(path);
    EXPECT_EQ(rig.animation, expected["animation"]);
    EXPECT_EQ(rig.frameCount, expected["frames"]);
    EXPECT_DOUBLE_EQ(rig.framesPerSecond, expected["fps"].get<double>());
}

TEST_P(KnownRig, PutsAJointWhereItIs) {
    const Rig rig = loadRig(path);
    const Json& known = expected["matrix"];
    RigFrame frame(rig);
    frame.pose(known["frame"]);
    const VMatrix& world = frame.joints().at(known["joint"]).matrices[kWorld];
    for (unsigned row = 0; row < 4; ++row)
        for (unsigned column = 0; column < 4; ++column) {
            const double number = known["world"][row * 4 + column];
            EXPECT_NEAR(world[row][column], number, kTolerance * std::max(1., std::abs(number)))
                << row << ", " << column;
        }
}

TEST_P(KnownRig, IsDescribed) {
    const RigInfo info = loadInfo(path);
    EXPECT_EQ(info.hasSkeleton, expected["hasSkeleton"]);
    EXPECT_EQ(info.joints, expected["joints"].size());
    EXPECT_EQ(info.bones, expected["bones"]);
    EXPECT_EQ(info.animated, expected["animated"]);
    EXPECT_EQ(info.inBetween, expected["inBetween"]);
    expectWorld(info.world.upAxis, info.world.metresPerUnit);
    if (info.animations.empty()) {
        EXPECT_EQ(expected["frames"], 1);
        return;
    }
    const AnimationInfo& first = info.animations.front();
    EXPECT_EQ(first.name, expected["animation"]);
    ASSERT_TRUE(first.timing.has_value());
    EXPECT_EQ(first.timing->frameCount, expected["frames"]);
    EXPECT_DOUBLE_EQ(first.timing->framesPerSecond, expected["fps"].get<double>());
    EXPECT_NEAR(first.timing->seconds, expected["seconds"].get<double>(), 1e-4);
}

}  // namespace
