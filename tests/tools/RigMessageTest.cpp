#include "tests/support/TemporaryFolder.h"
#include "tests/tools/SampleRigs.h"
#include "tools/process/Message.h"
#include "tools/rig/LoadRig.h"
#include "tools/rig/RigMessage.h"

#include <cmath>
#include <limits>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

Rig sampleRig() {
    const TemporaryFolder folder;
    Rig rig = loadRig(folder.write("rig.bvh", sampleBvh()));
    rig.metresPerUnit = 0.01;
    return rig;
}

TEST(RigMessage, BringsEverythingOfARigAcross) {
    Rig rig = sampleRig();
    rig.hasSkeleton = false;
    rig.upAxis = 2;
    rig.animation = "wal\0k";
    rig.joints[3].name = "\xff";
    rig.joints[3].aboveRoot[1][2] = -7;
    rig.joints[3].channel.reset();
    Link link;
    link.rest[3][0] = 5;
    link.channel = rig.joints[0].channel;
    rig.joints[3].links = {link, {}};
    rig.carriers = {{std::nullopt, {link}}, {0, {}}};
    rig.joints[0].carrier = 1;
    const Rig other = rigOf(messageOf(rig));

    EXPECT_EQ(other.file, rig.file);
    EXPECT_EQ(other.filesRead, rig.filesRead);
    EXPECT_EQ(other.hasSkeleton, false);
    EXPECT_EQ(other.upAxis, 2U);
    EXPECT_EQ(other.metresPerUnit, 0.01);
    EXPECT_EQ(other.animation, rig.animation);
    EXPECT_EQ(other.frameCount, rig.frameCount);
    EXPECT_EQ(other.framesPerSecond, rig.framesPerSecond);
    EXPECT_EQ(other.ticksPerFrame, rig.ticksPerFrame);
    ASSERT_EQ(other.joints.size(), rig.joints.size());
    EXPECT_EQ(other.joints[3].name, "\xff");
    EXPECT_EQ(other.joints[3].aboveRoot[1][2], -7);
    EXPECT_EQ(other.joints[3].weight, rig.joints[3].weight);
    EXPECT_FALSE(other.joints[3].channel);
    EXPECT_EQ(other.joints[4].parent, rig.joints[4].parent);
    ASSERT_TRUE(other.joints[2].channel);
    EXPECT_EQ(other.joints[2].channel->rotations, rig.joints[2].channel->rotations);
    EXPECT_EQ(other.joints[0].channel->positions, rig.joints[0].channel->positions);
    EXPECT_EQ(other.joints[0].carrier, 1U);
    ASSERT_EQ(other.joints[3].links.size(), 2U);
    EXPECT_EQ(other.joints[3].links[0].rest[3][0], 5);
    EXPECT_FALSE(other.joints[3].links[1].channel);
    ASSERT_EQ(other.carriers.size(), 2U);
    EXPECT_EQ(other.carriers[1].parent, 0U);
    ASSERT_TRUE(other.carriers[0].links[0].channel);
    EXPECT_EQ(other.carriers[0].links[0].channel->positions, rig.joints[0].channel->positions);
    // Written again, it is the same to the last bit.
    EXPECT_EQ(messageOf(other), messageOf(rig));
}

struct Fault {
    const char* name;
    void (*inflict)(Rig& rig);
    const char* told;
};

const std::vector<Fault> kFaults{
    {"NoJoints", [](Rig& rig) { rig.joints.clear(); }, "there are no joints"},
    {"TooManyJoints", [](Rig& rig) { rig.joints.resize(kMostJoints + 1); }, "a list is too long"},
    {"ParentOfItself", [](Rig& rig) { rig.joints[1].parent = 1; },
     "a joint stands before its parent"},
    {"ParentOfTheFirst", [](Rig& rig) { rig.joints[0].parent = 4; },
     "a joint stands before its parent"},
    {"NoSuchParent", [](Rig& rig) { rig.joints[4].parent = std::size_t(-1); },
     "a joint stands before its parent"},
    {"NoSuchCarrier", [](Rig& rig) { rig.joints[0].carrier = 0; }, "a carrier is not there"},
    {"CarrierOfItself",
     [](Rig& rig) {
         rig.carriers = {{0, {}}};
     },
     "a carrier stands before its parent"},
    {"NoKeysOfALink",
     [](Rig& rig) {
         rig.joints[0].links = {{VMatrix(), Channel()}};
     },
     "a list of keys is empty"},
    {"NoKeysOfACarrier",
     [](Rig& rig) {
         rig.carriers = {{std::nullopt, {{VMatrix(), Channel()}}}};
     },
     "a list of keys is empty"},
    {"NoPositions", [](Rig& rig) { rig.joints[0].channel->positions.clear(); },
     "a list of keys is empty"},
    {"NoRotations", [](Rig& rig) { rig.joints[0].channel->rotations.clear(); },
     "a list of keys is empty"},
    {"NoScalings", [](Rig& rig) { rig.joints[0].channel->scalings.clear(); },
     "a list of keys is empty"},
    {"KeyAtNoTime", [](Rig& rig) { rig.joints[0].channel->positions[1].mTime = kNaN; },
     "a key has no time"},
    {"KeyAtTheEndOfTime", [](Rig& rig) { rig.joints[0].channel->rotations[3].mTime = kInfinity; },
     "a key has no time"},
    {"KeysOutOfOrder", [](Rig& rig) { rig.joints[0].channel->rotations[3].mTime = -1; },
     "keys are out of order"},
    {"NoSuchAxis", [](Rig& rig) { rig.upAxis = 3; }, "there is no such axis"},
    {"NoUnit", [](Rig& rig) { rig.metresPerUnit = 0; }, "the unit has no length"},
    {"NoFrames", [](Rig& rig) { rig.frameCount = 0; }, "there are too many frames, or none"},
    {"TooManyFrames", [](Rig& rig) { rig.frameCount = kMostFrames + 1; },
     "there are too many frames, or none"},
    {"NoRate", [](Rig& rig) { rig.framesPerSecond = 0; }, "frames have no length"},
    {"BackwardFrames", [](Rig& rig) { rig.ticksPerFrame = -1; }, "frames have no length"},
    {"EndlessFrames", [](Rig& rig) { rig.ticksPerFrame = kInfinity; }, "frames have no length"},
};

RigInfo sampleInfo() {
    const TemporaryFolder folder;
    RigInfo info = loadInfo(folder.write("rig.gltf", sampleGltf()));
    info.animations[1].timing.reset();
    info.world.upAxis = 2;
    return info;
}

TEST(RigInfoMessage, BringsEverythingAcross) {
    const RigInfo info = sampleInfo();
    const RigInfo other = infoOf(messageOf(info));
    EXPECT_EQ(other.file, info.file);
    EXPECT_EQ(other.hasSkeleton, info.hasSkeleton);
    EXPECT_EQ(other.joints, 2U);
    EXPECT_EQ(other.bones, 2U);
    EXPECT_EQ(other.animated, 1U);
    EXPECT_EQ(other.inBetween, 0U);
    EXPECT_EQ(other.meshes, 1U);
    EXPECT_EQ(other.skins, 1U);
    EXPECT_EQ(other.world.upAxis, 2U);
    EXPECT_EQ(other.world.metresPerUnit, info.world.metresPerUnit);
    ASSERT_EQ(other.animations.size(), 2U);
    EXPECT_EQ(other.animations[0].name, "move");
    EXPECT_EQ(other.animations[0].timing->seconds, 1);
    EXPECT_EQ(other.animations[0].timing->framesPerSecond, 30);
    EXPECT_EQ(other.animations[0].timing->frameCount, 31U);
    EXPECT_FALSE(other.animations[1].timing);
    EXPECT_EQ(messageOf(other), messageOf(info));
}

TEST(RigInfoMessage, IsRefusedWhereItCannotBeTrue) {
    const std::pair<const char*, void (*)(RigInfo&)> faults[] = {
        {"there are more joints of a sort than of all", [](RigInfo& info) { info.bones = 3; }},
        {"there are more joints of a sort than of all", [](RigInfo& info) { info.animated = 3; }},
        {"there are more joints of a sort than of all", [](RigInfo& info) { info.inBetween = 3; }},
        {"there are more skins than meshes", [](RigInfo& info) { info.skins = 2; }},
        {"there is no such axis", [](RigInfo& info) { info.world.upAxis = 3; }},
        {"the unit has no length", [](RigInfo& info) { info.world.metresPerUnit = -1; }},
        {"an animation has no length",
         [](RigInfo& info) { info.animations[0].timing->seconds = kNaN; }},
        {"frames have no length",
         [](RigInfo& info) { info.animations[0].timing->framesPerSecond = kInfinity; }},
        {"an animation has no frames",
         [](RigInfo& info) { info.animations[0].timing->frameCount = 0; }},
    };
    for (const auto& [told, inflict] : faults) {
        RigInfo info = sampleInfo();
        inflict(info);
        try {
            infoOf(messageOf(info));
            ADD_FAILURE() << "is taken: " << told;
        } catch (const BadMessage& bad) {
            EXPECT_STREQ(bad.what(), told);
        }
    }
    EXPECT_THROW(infoOf(messageOf(sampleInfo()) + '\0'), BadMessage);
}

class RigMessageWithFault : public testing::TestWithParam<Fault> {};

INSTANTIATE_TEST_SUITE_P(Each, RigMessageWithFault, testing::ValuesIn(kFaults),
                         [](const auto& fault) { return std::string(fault.param.name); });

TEST_P(RigMessageWithFault, IsRefused) {
    Rig rig = sampleRig();
    GetParam().inflict(rig);
    try {
        rigOf(messageOf(rig));
        ADD_FAILURE() << "is taken";
    } catch (const BadMessage& bad) {
        EXPECT_STREQ(bad.what(), GetParam().told);
    }
}

TEST(RigMessage, IsRefusedWhereverItIsCutOff) {
    const std::string whole = messageOf(sampleRig());
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_THROW(rigOf(whole.substr(0, size)), BadMessage) << size;
    EXPECT_THROW(rigOf(whole + '\0'), BadMessage);
}

// Whatever the bytes are, it is a rig or it is refused.
TEST(RigMessage, MayHoldAnything) {
    const std::string whole = messageOf(sampleRig());
    std::mt19937 engine(1);
    std::size_t taken = 0, refused = 0;
    for (int i = 0; i < 2000; ++i) {
        std::string bytes = whole;
        for (unsigned flips = 1 + engine() % 4; flips > 0; --flips)
            bytes[engine() % bytes.size()] = static_cast<char>(engine());
        try {
            rigOf(bytes);
            ++taken;
        } catch (const BadMessage&) {
            ++refused;
        }
    }
    EXPECT_GT(taken, 0U);
    EXPECT_GT(refused, 0U);
}

}  // namespace
