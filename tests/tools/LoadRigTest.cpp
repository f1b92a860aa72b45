#include "tests/support/TemporaryFolder.h"
#include "tests/tools/SampleRigs.h"
#include "tools/node/RigFrame.h"
#include "tools/rig/LoadRig.h"

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

class LoadRig : public testing::Test {
protected:
    Rig load(const std::string& name, const std::string& content, const LoadOptions& options = {}) {
        return loadRig(folder.write(name, content), options);
    }

    static std::vector<std::string> names(const Rig& rig) {
        std::vector<std::string> result;
        for (const Joint& joint : rig.joints) result.push_back(joint.name);
        return result;
    }

    TemporaryFolder folder;
};

using Names = std::vector<std::string>;

TEST_F(LoadRig, TakesTheJointsOfABvhButNotItsEndSites) {
    const Rig rig = load("rig.bvh", sampleBvh());
    EXPECT_EQ(names(rig), (Names{"Hips", "Spine", "Chest", "LeftLeg", "RightLeg"}));
    EXPECT_EQ(rig.joints[0].parent, std::nullopt);
    EXPECT_EQ(rig.joints[2].parent, 1U);
    EXPECT_EQ(rig.joints[4].parent, 0U);
}

TEST_F(LoadRig, TakesTheNodesOfAGltfThatSkinOrMoveAsJoints) {
    const Rig rig = load("rig.gltf", sampleGltf());
    EXPECT_EQ(names(rig), (Names{"Base", "Tip"}));
    EXPECT_EQ(rig.joints[0].aboveRoot[3][1], 5);
    EXPECT_EQ(rig.joints[1].parent, 0U);
}

TEST_F(LoadRig, TakesTheBoneOfTheNameThatIsAskedForAndNotTheMesh) {
    LoadOptions options;
    options.root = "Bone";
    EXPECT_EQ(names(loadRig(KNOWN_RIGS "/objects_among_bones.gltf", options)),
              (Names{"Bone", "Between", "Bone", "End"}));
}

TEST_F(LoadRig, TakesAllNodesAsJointsWhereNoneSkinsOrMoves) {
    const Rig rig = load("rig.gltf", R"({"asset": {"version": "2.0"}, "scene": 0,
        "scenes": [{"nodes": [0]}],
        "nodes": [{"name": "a", "children": [1]}, {"name": "b", "translation": [1, 2, 3]}]})");
    EXPECT_EQ(names(rig), (Names{"a", "b"}));
    EXPECT_FALSE(rig.hasSkeleton);
    EXPECT_EQ(rig.frameCount, 1U);
    EXPECT_EQ(rig.joints[1].restWorld[3][2], 3);
}

TEST_F(LoadRig, PutsTranslationsIntoTheLastRow) {
    const Rig rig = load("rig.bvh", sampleBvh());
    const VMatrix& chest = rig.joints[2].restWorld;
    EXPECT_EQ(chest[3][0], 0);
    EXPECT_EQ(chest[3][1], 5);
    EXPECT_EQ(chest[3][3], 1);
    EXPECT_EQ(chest[1][3], 0);
}

TEST_F(LoadRig, ReadsThePoseOfAFrame) {
    const Rig rig = load("rig.bvh", sampleBvh());
    RigFrame frame(rig);
    frame.pose(3);
    const VMatrix& chest = frame.joints()[2].matrices[kWorld];
    // The hips are at (3, 10, 0); the chest is five above them, and turned from x to y.
    EXPECT_NEAR(chest[3][0], 3, 1e-5);
    EXPECT_NEAR(chest[3][1], 15, 1e-5);
    EXPECT_NEAR(chest[0][0], 0, 1e-6);
    EXPECT_NEAR(chest[0][1], 1, 1e-6);
    EXPECT_NEAR(chest[1][0], -1, 1e-6);
}

TEST_F(LoadRig, WeighsJointsByTheirShareOfTheSkins) {
    const Rig rig = load("rig.gltf", sampleGltf());
    EXPECT_DOUBLE_EQ(rig.joints[0].weight, 0.75);
    EXPECT_DOUBLE_EQ(rig.joints[1].weight, 0.25);
}

TEST_F(LoadRig, WeighsJointsByTheLengthOfTheirBonesWhereThereAreNoSkins) {
    const Rig rig = load("rig.bvh", sampleBvh());
    const double total = 2 + 3 + 2 * std::sqrt(2.0);
    EXPECT_DOUBLE_EQ(rig.joints[0].weight, 0);
    EXPECT_NEAR(rig.joints[1].weight, 2 / total, 1e-6);
    EXPECT_NEAR(rig.joints[2].weight, 3 / total, 1e-6);
    EXPECT_NEAR(rig.joints[3].weight, std::sqrt(2.0) / total, 1e-6);
}

TEST_F(LoadRig, GivesALoneJointTheWholeWeight) {
    const Rig rig = load("rig.gltf", R"({"asset": {"version": "2.0"}, "scene": 0,
        "scenes": [{"nodes": [0]}], "nodes": [{"name": "a"}]})");
    ASSERT_EQ(rig.joints.size(), 1U);
    EXPECT_EQ(rig.joints[0].weight, 1);
}

}  // namespace
