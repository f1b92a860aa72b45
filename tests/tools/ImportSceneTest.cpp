#include "tests/support/TemporaryFolder.h"
#include "tests/tools/SampleRigs.h"
#include "tools/rig/LoadRig.h"
#include "tools/support/Error.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::HasSubstr;
using testing::StartsWith;

class ImportScene : public testing::Test {
protected:
    // What the error says after the name of the file; nothing if the file is read.
    std::string refusal(const std::string& path) {
        try {
            loadRig(path);
        } catch (const Error& error) {
            EXPECT_THAT(error.what(), StartsWith(path + ": "));
            return error.what() + path.size() + 2;
        }
        return "";
    }

    TemporaryFolder folder;
};

TEST_F(ImportScene, RefusesAMissingFile) {
    EXPECT_EQ(refusal(folder.path("none.bvh")), "there is no such file");
}

TEST_F(ImportScene, RefusesAFolder) {
    std::filesystem::create_directory(folder.path("folder.bvh"));
    EXPECT_EQ(refusal(folder.path("folder.bvh")), "is a folder, not a file");
}

TEST_F(ImportScene, RefusesAnEmptyFile) {
    EXPECT_EQ(refusal(folder.write("empty.bvh", "")), "is empty");
}

TEST_F(ImportScene, RefusesText) {
    EXPECT_THAT(refusal(folder.write("notes.txt", "Remember the milk.\n")),
                HasSubstr("not a rig file"));
    EXPECT_THAT(refusal(folder.write("notes.bvh", "Remember the milk.\n")),
                HasSubstr("cannot be read"));
}

TEST_F(ImportScene, RefusesAnImage) {
    const std::string start("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\0\0\1\0\0\0\1\x08\x06\0\0\0", 30);
    EXPECT_THAT(refusal(folder.write("image.png", start)), HasSubstr("not a rig file"));
}

// Wherever it is cut; only the end of the last line may be missing.
TEST_F(ImportScene, RefusesABvhThatEndsTooSoon) {
    const std::string whole = sampleBvh();
    const std::size_t lastNumber = whole.size() - 2;
    for (std::size_t size = 1; size <= lastNumber; size += 7)
        EXPECT_NE(refusal(folder.write("cut.bvh", whole.substr(0, size))), "") << size;
    EXPECT_NE(refusal(folder.write("cut.bvh", whole.substr(0, lastNumber))), "");
    EXPECT_EQ(refusal(folder.write("whole.bvh", whole)), "");
}

TEST_F(ImportScene, RefusesABvhThatAnnouncesMoreFramesThanItHas) {
    std::string text = sampleBvh();
    text.replace(text.find("Frames: 4"), 9, "Frames: 5");
    EXPECT_NE(refusal(folder.write("rig.bvh", text)), "");
}

TEST_F(ImportScene, RefusesABvhThatAnnouncesAbsurdlyManyFrames) {
    std::string text = sampleBvh();
    text.replace(text.find("Frames: 4"), 9, "Frames: 4000000000");
    EXPECT_NE(refusal(folder.write("rig.bvh", text)), "");
}

TEST_F(ImportScene, RefusesAGltfThatEndsTooSoon) {
    const std::string whole = sampleGltf();
    for (std::size_t size = 1; size + 3 < whole.size(); size += 41)
        EXPECT_NE(refusal(folder.write("cut.gltf", whole.substr(0, size))), "") << size;
    EXPECT_EQ(refusal(folder.write("whole.gltf", whole)), "");
}

TEST_F(ImportScene, RefusesAGltfWhoseBufferIsTooShort) {
    std::string text = sampleGltf();
    text.replace(text.find("\"byteLength\": 312"), 17, "\"byteLength\": 999");
    const std::size_t view = text.find("\"byteOffset\": 0, \"byteLength\": 12");
    text.replace(view, 33, "\"byteOffset\": 900,\"byteLength\":12");
    EXPECT_NE(refusal(folder.write("rig.gltf", text)), "");
}

}  // namespace
