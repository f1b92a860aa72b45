#include "tools/rig/SceneJoints.h"
#include "tools/support/Error.h"

#include <algorithm>
#include <array>

#include <assimp/commonMetaData.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::ElementsAre;

using Place = std::array<float, 3>;

// A scene of nodes, built in the order in which they are added.
class SceneJoints : public testing::Test {
protected:
    SceneJoints() { scene.mRootNode = new aiNode("world"); }

    aiNode* add(aiNode* parent, const std::string& name, const Place& place = {0, 0, 0}) {
        auto* node = new aiNode(name);
        node->mTransformation.a4 = place[0];
        node->mTransformation.b4 = place[1];
        node->mTransformation.c4 = place[2];
        parent->addChildren(1, &node);
        return node;
    }
    aiNode* add(const std::string& name) { return add(scene.mRootNode, name); }

    template <typename Thing>
    static Thing* append(Thing**& array, unsigned& count) {
        auto** const longer = new Thing*[count + 1];
        std::copy(array, array + count, longer);
        delete[] array;
        array = longer;
        return array[count++] = new Thing;
    }

    // Bones at these places when the skin was bound. The node shows the mesh.
    void skin(aiNode* node, const std::vector<std::pair<std::string, Place>>& bones) {
        aiMesh* const mesh = append(scene.mMeshes, scene.mNumMeshes);
        for (const auto& [name, place] : bones) {
            aiBone* const bone = append(mesh->mBones, mesh->mNumBones);
            bone->mName = name;
            bone->mOffsetMatrix.a4 = -place[0];
            bone->mOffsetMatrix.b4 = -place[1];
            bone->mOffsetMatrix.c4 = -place[2];
            bone->mNumWeights = 1;
            bone->mWeights = new aiVertexWeight[1]{{0, 0.5F}};
        }
        show(node, scene.mNumMeshes - 1);
    }
    static void show(aiNode* node, unsigned mesh) {
        delete[] node->mMeshes;
        node->mNumMeshes = 1;
        node->mMeshes = new unsigned[1]{mesh};
    }
    void showMesh(aiNode* node) {
        append(scene.mMeshes, scene.mNumMeshes);
        show(node, scene.mNumMeshes - 1);
    }
    // Moves from this place along x by one in a tick.
    void move(const std::string& name, const Place& place = {0, 0, 0}) {
        if (scene.mNumAnimations == 0) append(scene.mAnimations, scene.mNumAnimations);
        aiAnimation& animation = *scene.mAnimations[0];
        aiNodeAnim* const channel = append(animation.mChannels, animation.mNumChannels);
        channel->mNodeName = name;
        channel->mNumPositionKeys = 2;
        channel->mPositionKeys = new aiVectorKey[2]{{0, {place[0], place[1], place[2]}},
                                                    {1, {place[0] + 1, place[1], place[2]}}};
    }
    void addCamera(const std::string& name) {
        append(scene.mCameras, scene.mNumCameras)->mName = name;
    }
    void addLight(const std::string& name) {
        append(scene.mLights, scene.mNumLights)->mName = name;
    }

    Skeleton found(const std::optional<std::string>& root = std::nullopt) const {
        return skeletonOf(scene, "file", root);
    }
    std::vector<const aiNode*> nodes(const std::optional<std::string>& root = std::nullopt) const {
        const Skeleton skeleton = found(root);
        std::vector<const aiNode*> result;
        for (const std::size_t joint : skeleton.joints)
            result.push_back(skeleton.tree.nodes()[joint].node);
        return result;
    }
    Rig rig() const {
        const Skeleton skeleton = found();
        Channels channels;
        if (scene.mNumAnimations > 0)
            channels = channelsOf(*scene.mAnimations[0], skeleton.tree, skeleton.bones);
        Rig result;
        addJoints(result, skeleton, channels);
        return result;
    }
    std::vector<Joint> joints() const { return rig().joints; }

    aiScene scene;
};

TEST_F(SceneJoints, AreTheBonesAndWhatIsBetweenAndBelow) {
    aiNode* const body = add("body");
    aiNode* const armature = add("armature");
    aiNode* const hips = add(armature, "hips");
    aiNode* const between = add(hips, "between");
    aiNode* const hand = add(between, "hand");
    aiNode* const end = add(hand, "end");
    add("beside");
    skin(body, {{"hips", {}}, {"hand", {}}});
    move("armature");
    move("beside");
    EXPECT_THAT(nodes(), ElementsAre(hips, between, hand, end));
}

TEST_F(SceneJoints, AreTheNodesUpToTheLowestAboveAllBonesOfASkin) {
    aiNode* const body = add("body");
    aiNode* const armature = add("armature");
    aiNode* const hips = add(armature, "hips");
    aiNode* const socket = add(hips, "socket");
    aiNode* const left = add(socket, "left");
    aiNode* const plate = add(hips, "plate");
    aiNode* const right = add(plate, "right");
    showMesh(plate);
    skin(body, {{"left", {}}, {"right", {}}});
    EXPECT_THAT(nodes(), ElementsAre(hips, socket, left, right));
    EXPECT_EQ(joints()[3].parent, 0U);

    // What is between the bones of different skins, and the root of the scene, are none.
    aiNode* const sword = add("sword");
    aiNode* const tail = add(add("stand"), "tail");
    skin(sword, {{"tail", {}}});
    EXPECT_THAT(nodes(), ElementsAre(hips, socket, left, right, tail));
    aiNode* const arm = add("arm");
    skin(sword, {{"left", {}}, {"arm", {}}});
    EXPECT_THAT(nodes(), ElementsAre(armature, hips, socket, left, right, tail, arm));
}

TEST_F(SceneJoints, AreNoMeshesCamerasOrLightsUnlessTheyAreBones) {
    aiNode* const body = add("body");
    aiNode* const hips = add("hips");
    aiNode* const sword = add(hips, "sword");
    aiNode* const tip = add(sword, "tip");
    add(hips, "eye");
    add(hips, "lamp");
    aiNode* const plate = add(hips, "plate");
    showMesh(sword);
    showMesh(plate);
    addCamera("eye");
    addLight("lamp");
    skin(body, {{"hips", {}}, {"plate", {}}});
    EXPECT_THAT(nodes(), ElementsAre(hips, tip, plate));
}

TEST_F(SceneJoints, AreWhatIsAnimatedWhereThereAreNoBones) {
    aiNode* const stand = add("stand");
    aiNode* const base = add(stand, "base");
    aiNode* const arm = add(base, "arm");
    aiNode* const eye = add(base, "eye");
    aiNode* const cube = add("cube");
    showMesh(cube);
    addCamera("eye");
    for (const aiNode* node : {base, eye, cube}) move(node->mName.C_Str());
    move("none");
    EXPECT_THAT(nodes(), ElementsAre(base, arm, cube));
    EXPECT_TRUE(found().isFound);
}

TEST_F(SceneJoints, AreAllNodesWhereNothingShowsASkeleton) {
    aiNode* const cube = add("cube");
    aiNode* const eye = add("eye");
    showMesh(cube);
    addCamera("eye");
    move("eye");
    EXPECT_THAT(nodes(), ElementsAre(scene.mRootNode, cube, eye));
    EXPECT_FALSE(found().isFound);
}

TEST_F(SceneJoints, AreTheSubtreeThatIsAskedFor) {
    aiNode* const body = add("body");
    aiNode* const first = add("group");
    aiNode* const hips = add(first, "hips");
    aiNode* const second = add("group");
    add(second, "other");
    showMesh(add(first, "mesh"));
    skin(body, {{"hips", {}}, {"other", {}}});
    EXPECT_THAT(nodes("group"), ElementsAre(first, hips));
    EXPECT_THAT(nodes("hips"), ElementsAre(hips));
    EXPECT_THAT(nodes("body"), ElementsAre(body));
    EXPECT_THROW(nodes("none"), Error);
}

TEST_F(SceneJoints, AreBelowABoneOrWhatIsAnimatedWhereSeveralHaveTheNameThatIsAskedFor) {
    aiNode* const first = add("arm");
    aiNode* const second = add("arm");
    aiNode* const third = add("arm");
    showMesh(first);
    EXPECT_THAT(nodes("arm"), ElementsAre(first));
    second->mTransformation.a4 = 5;
    move("arm", {0, 0, 0});
    move("arm", {5, 0, 0});
    first->mTransformation.a4 = 9;
    EXPECT_THAT(nodes("arm"), ElementsAre(second));
    third->mTransformation.b4 = 7;
    skin(first, {{"arm", {0, 7, 0}}});
    EXPECT_THAT(nodes("arm"), ElementsAre(third));
}

TEST_F(SceneJoints, AreTheBonesOwnNodesWhereOthersHaveTheirNames) {
    aiNode* const cube = add("bone");
    aiNode* const body = add("body");
    aiNode* const upper = add(scene.mRootNode, "bone", {0, 1, 0});
    aiNode* const lower = add(upper, "bone", {0, 2, 0});
    showMesh(cube);
    skin(body, {{"bone", {0, 3, 0}}, {"bone", {0, 1, 0}}});
    EXPECT_THAT(nodes(), ElementsAre(upper, lower));

    move("bone", {0, 2, 0});
    const Skeleton skeleton = found();
    const Channels channels = channelsOf(*scene.mAnimations[0], skeleton.tree, skeleton.bones);
    ASSERT_EQ(channels.size(), 1U);
    EXPECT_EQ(channels.begin()->first, lower);
}

// As far from where the skin was bound as can be, but among bones and without a mesh.
TEST_F(SceneJoints, AreTheLikelierNodesWhereNoneIsWhereTheSkinWasBound) {
    aiNode* const body = add("body");
    showMesh(add("hand"));
    add("hand");
    aiNode* const arm = add(scene.mRootNode, "arm", {9, 9, 9});
    aiNode* const hand = add(arm, "hand", {9, 9, 9});
    skin(body, {{"arm", {0, 1, 0}}, {"hand", {0, 0, 1}}});
    EXPECT_THAT(nodes(), ElementsAre(arm, hand));
}

TEST_F(SceneJoints, AreMovedByTheChannelsThatBeginWhereTheyRest) {
    aiNode* const first = add(scene.mRootNode, "wheel", {1, 0, 0});
    aiNode* const second = add(scene.mRootNode, "wheel", {2, 0, 0});
    move("wheel", {2, 0, 0});
    move("wheel", {1, 0, 0});
    EXPECT_THAT(nodes(), ElementsAre(first, second));
    EXPECT_EQ(joints()[0].local(1)[3][0], 2);
    EXPECT_EQ(joints()[1].local(1)[3][0], 3);
}

TEST_F(SceneJoints, FollowNodesBetweenThemThatAreNone) {
    aiNode* const body = add("body");
    aiNode* const stand = add(scene.mRootNode, "stand", {0, 0, 5});
    aiNode* const hips = add(stand, "hips", {0, 1, 0});
    aiNode* const plate = add(hips, "plate", {1, 0, 0});
    aiNode* const rim = add(plate, "rim", {2, 0, 0});
    add(rim, "hand", {0, 1, 0});
    showMesh(plate);
    showMesh(rim);
    skin(body, {{"hips", {}}, {"hand", {}}});
    const std::vector<Joint> still = joints();
    ASSERT_EQ(still.size(), 2U);
    EXPECT_EQ(still[1].parent, 0U);
    EXPECT_EQ(still[1].restLocal[3][0], 3);
    EXPECT_EQ(still[1].restLocal[3][1], 1);
    EXPECT_TRUE(still[1].links.empty());
    EXPECT_EQ(still[0].aboveRoot[3][2], 5);
    EXPECT_EQ(still[0].carrier, std::nullopt);
    EXPECT_TRUE(rig().carriers.empty());

    move("plate", {1, 0, 0});
    move("stand", {0, 0, 5});
    const std::vector<Joint> moved = joints();
    EXPECT_EQ(moved[1].restLocal, still[1].restLocal);
    EXPECT_EQ(moved[1].local(1)[3][0], 4);
    EXPECT_EQ(moved[1].local(1)[3][1], 1);
    ASSERT_TRUE(moved[0].carrier.has_value());
    const VMatrix carrier = poseCarriers(rig(), 1).at(*moved[0].carrier);
    EXPECT_EQ(carrier[3][0], 1);
    EXPECT_EQ(carrier[3][2], 5);
    EXPECT_EQ(moved[0].aboveRoot, still[0].aboveRoot);
}

TEST_F(SceneJoints, AreNoEndSitesOfABvh) {
    aiNode* const hips = add("hips");
    add(hips, "EndSite_hips");
    move("hips");
    EXPECT_EQ(nodes().size(), 2U);
    scene.mMetaData = aiMetadata::Alloc(1);
    scene.mMetaData->Set(0, AI_METADATA_SOURCE_FORMAT, aiString("BVH Importer (MoCap)"));
    EXPECT_THAT(nodes(), ElementsAre(hips));
}

TEST_F(SceneJoints, HaveNodesForTheirPartsThatAreNone) {
    aiNode* const place = add(scene.mRootNode, "hips_$AssimpFbx$_Translation", {0, 3, 0});
    aiNode* const pivot = add(place, "hips_$AssimpFbx$_RotationPivot", {1, 0, 0});
    aiNode* const geometry = add(pivot, "hips_$AssimpFbx$_GeometricTranslation", {0, 0, 9});
    aiNode* const hips = add(geometry, "hips");
    aiNode* const back = add(hips, "hips_$AssimpFbx$_GeometricTranslationInverse", {0, 0, -9});
    aiNode* const leg = add(back, "leg", {0, 5, 0});
    add(back, "end_$AssimpFbx$_Translation");
    move("hips_$AssimpFbx$_Translation", {0, 3, 0});
    EXPECT_THAT(nodes(), ElementsAre(hips, leg));
    const std::vector<Joint> moved = joints();
    EXPECT_EQ(moved[0].restLocal[3][0], 1);
    EXPECT_EQ(moved[0].restLocal[3][1], 3);
    EXPECT_EQ(moved[0].restLocal[3][2], 0);
    EXPECT_EQ(moved[0].local(1)[3][0], 2);
    EXPECT_EQ(moved[0].local(1)[3][1], 3);
    EXPECT_EQ(moved[0].carrier, std::nullopt);
    EXPECT_EQ(moved[1].parent, 0U);
    EXPECT_EQ(moved[1].restLocal[3][1], 5);
}

TEST_F(SceneJoints, AreFoundInABrokenScene) {
    aiNode* const body = add("body");
    aiNode* const hips = add("hips");
    skin(body, {{"hips", {}}, {"hips", {}}, {"none", {}}});
    move("hips");
    move("hips");
    body->mMeshes[0] = 99;
    // A child that is nothing, and one that is its own ancestor.
    aiNode* children[]{add("a"), add("b")};
    scene.mRootNode->mChildren[2] = nullptr;
    scene.mRootNode->mChildren[3] = scene.mRootNode;
    append(scene.mMeshes, scene.mNumMeshes);
    std::swap(scene.mMeshes[1], scene.mMeshes[0]);
    delete scene.mMeshes[0];
    scene.mMeshes[0] = nullptr;
    delete scene.mMeshes[1]->mBones[1];
    scene.mMeshes[1]->mBones[1] = nullptr;
    delete[] scene.mMeshes[1]->mBones[0]->mWeights;
    scene.mMeshes[1]->mBones[0]->mWeights = nullptr;
    delete scene.mAnimations[0]->mChannels[0];
    scene.mAnimations[0]->mChannels[0] = nullptr;
    delete[] scene.mAnimations[0]->mChannels[1]->mPositionKeys;
    scene.mAnimations[0]->mChannels[1]->mPositionKeys = nullptr;
    EXPECT_THAT(nodes(), ElementsAre(hips));
    EXPECT_EQ(joints().size(), 1U);

    // The scene is to be deleted.
    scene.mRootNode->mChildren[2] = children[0];
    scene.mRootNode->mChildren[3] = children[1];
    scene.mAnimations[0]->mChannels[1]->mNumPositionKeys = 0;
    scene.mMeshes[1]->mBones[0]->mNumWeights = 0;
}

}  // namespace
