#include "tests/support/TemporaryFolder.h"
#include "tests/tools/SampleRigs.h"
#include "tools/rig/ReadRig.h"
#include "tools/rig/RigMessage.h"
#include "tools/support/Error.h"

#include <csignal>
#include <cstdio>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

TEST(ReadRig, MakesTheSameRigAsReadingInTheSameProcess) {
    const TemporaryFolder folder;
    LoadOptions options;
    options.framesPerSecond = 17;
    for (const auto& [name, content] :
         {std::pair("rig.bvh", sampleBvh()), std::pair("rig.gltf", sampleGltf())}) {
        const std::string file = folder.write(name, content);
        EXPECT_EQ(messageOf(readRig(file, options, {})), messageOf(loadRig(file, options)));
    }
}

std::string refusal(const std::function<std::string()>& read, const Limits& limits = {}) {
    try {
        inReadingProcess("a.rig", limits, read);
    } catch (const Error& error) {
        EXPECT_EQ(error.stage(), Stage::Reading);
        EXPECT_EQ(error.file(), "a.rig");
        EXPECT_EQ(error.status(), 2);
        return error.what();
    }
    return "";
}

TEST(ReadRig, SaysHowTheReaderWentDown) {
    EXPECT_EQ(refusal([]() -> std::string { throw Error("a.rig: is empty"); }), "a.rig: is empty");
    EXPECT_EQ(refusal([]() -> std::string {
                  std::raise(SIGSEGV);
                  return "";
              }),
              "a.rig: its reader crashes (segmentation fault)");
    EXPECT_EQ(refusal([]() -> std::string { throw std::runtime_error("no"); }),
              "a.rig: its reader throws \"no\"");
}

TEST(ReadRig, DoesNotMindPrints) {
    EXPECT_EQ(inReadingProcess("a.rig", {},
                               [] {
                                   std::puts("Reading a.rig ...");
                                   return std::string("text");
                               }),
              "text");
}

}  // namespace
