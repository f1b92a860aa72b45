#include "tools/rig/MendScene.h"

#include <algorithm>
#include <initializer_list>

#include <gtest/gtest.h>

namespace {

using Tolvane::Tools::separateSharedBones;

aiMesh* meshWith(std::initializer_list<aiBone*> bones) {
    auto* mesh = new aiMesh;
    mesh->mNumBones = static_cast<unsigned>(bones.size());
    mesh->mBones = new aiBone*[bones.size()];
    std::copy(bones.begin(), bones.end(), mesh->mBones);
    return mesh;
}

// That the scene can be deleted at all is half of it.
TEST(SeparateSharedBones, GivesEachPlaceABoneOfItsOwn) {
    auto* shared = new aiBone;
    shared->mName = "hips";
    auto* other = new aiBone;
    aiScene scene;
    scene.mNumMeshes = 3;
    scene.mMeshes = new aiMesh* [3] {
        meshWith({shared, other, shared}), nullptr, meshWith({shared, nullptr, nullptr})
    };
    separateSharedBones(scene);
    EXPECT_EQ(scene.mMeshes[0]->mBones[0], shared);
    EXPECT_EQ(scene.mMeshes[0]->mBones[1], other);
    for (const aiBone* bone : {scene.mMeshes[0]->mBones[2], scene.mMeshes[2]->mBones[0]}) {
        EXPECT_NE(bone, shared);
        EXPECT_EQ(bone->mName, shared->mName);
    }
    EXPECT_NE(scene.mMeshes[0]->mBones[2], scene.mMeshes[2]->mBones[0]);
    EXPECT_EQ(scene.mMeshes[2]->mBones[1], nullptr);
}

}  // namespace
