// `tolvane info` from outside.
#include "tests/support/TolvaneProcess.h"
#include "tests/tools/FittingLines.h"
#include "tests/tools/SampleRigs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

using testing::HasSubstr;
using Json = nlohmann::ordered_json;

class TolvaneInfo : public testing::Test {
protected:
    Json jsonOf(const std::string& file) {
        const TolvaneProcess process = runTolvane({"info", "--json", file});
        EXPECT_EQ(process.status, 0);
        EXPECT_EQ(process.errors, "");
        return Json::parse(process.output);
    }

    TemporaryFolder folder;
};

TEST_F(TolvaneInfo, PrintsWhatAFileHolds) {
    const std::string file = folder.write("rig.gltf", sampleGltf());
    const TolvaneProcess process = runTolvane({"info", file});
    EXPECT_EQ(process.status, 0);
    EXPECT_EQ(process.errors, "");
    EXPECT_THAT(process.output, HasSubstr("Rig         " + file + "\n"));
    EXPECT_THAT(process.output, HasSubstr("Joints      2: 2 bones of skins, 1 animated, "
                                          "0 in between or below\n"));
    EXPECT_THAT(process.output, HasSubstr("Meshes      1, 1 with bones\n"));
    EXPECT_THAT(process.output, HasSubstr("Up axis     y\nUnit        1 m\nAnimations  2\n"));
    EXPECT_THAT(process.output, HasSubstr("\n\"move\"           1      31          30\n"));
}

TEST_F(TolvaneInfo, PrintsWhatAFileHoldsAsJson) {
    const std::string file = folder.write("rig.gltf", sampleGltf());
    EXPECT_EQ(jsonOf(file), Json::parse(R"({"file": ")" + file + R"(", "hasSkeleton": true,
        "joints": {"count": 2, "bones": 2, "animated": 1, "inBetween": 0},
        "meshes": 1, "skins": 1, "upAxis": "y", "metresPerUnit": 1.0,
        "animations": [{"name": "move", "seconds": 1.0, "fps": 30.0, "frames": 31},
                       {"name": "still", "seconds": 0.0, "fps": 30.0, "frames": 1}]})"));
}

TEST_F(TolvaneInfo, LeavesOpenWhatAFileDoesNotSay) {
    const std::string file = folder.write("point.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    const Json info = jsonOf(file);
    EXPECT_EQ(info["hasSkeleton"], false);
    EXPECT_EQ(info["metresPerUnit"], Json());
    EXPECT_EQ(info["animations"], Json::array());
    const std::string output = runTolvane({"info", file}).output;
    EXPECT_THAT(output, HasSubstr("\n            no skeleton: every node taken for a joint\n"));
    EXPECT_THAT(output, HasSubstr("\nUnit        unknown\n"));
}

TEST_F(TolvaneInfo, LeavesOpenHowLongAnAnimationWithoutAUnitOfTimeIs) {
    std::string text = sampleBvh();
    text.replace(text.find("Frame Time: 0.1"), 15, "Frame Time: -1");
    const std::string file = folder.write("rig.bvh", text);
    const Json info = jsonOf(file);
    EXPECT_EQ(info["joints"]["count"], 5);
    EXPECT_EQ(info["animations"], Json::parse(R"([{"name": "Motion", "seconds": null, "fps": null,
                                                   "frames": null}])"));
    EXPECT_THAT(runTolvane({"info", file}).output,
                HasSubstr("\n\"Motion\"   unknown  unknown     unknown\n"));
}

TEST_F(TolvaneInfo, FitsEightyColumnsHoweverLongAName) {
    std::string text = sampleGltf();
    std::string name;
    for (int i = 0; i < 60; ++i) name += "ä";
    text.replace(text.find("\"move\""), 6, '"' + name + '"');
    const std::string wide = "左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕左腕";
    const std::string file = folder.write(wide + wide + ".gltf", text);
    EXPECT_EQ(jsonOf(file)["animations"][0]["name"], name);
    EXPECT_EQ(jsonOf(file)["file"], file);

    const std::string output = runTolvane({"info", file}).output;
    expectLinesThatFit(output);
    EXPECT_THAT(output, testing::ContainsRegex("Rig  .*[.][.][.].*左腕.gltf"));
    EXPECT_THAT(output, HasSubstr("äää...äää"));
}

TEST_F(TolvaneInfo, NeedsNoPlugin) {
    const std::string file = folder.write("rig.bvh", sampleBvh());
    const std::string program = folder.path("tolvane");
    std::filesystem::copy_file(TOLVANE, program);
    EXPECT_EQ(std::system((quoted(program) + " info " + quoted(file) + " >/dev/null").c_str()), 0);
}

}  // namespace
