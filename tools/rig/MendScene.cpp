#include "tools/rig/MendScene.h"

#include <unordered_set>

namespace Tolvane::Tools {

void separateSharedBones(aiScene& scene) {
    std::unordered_set<const aiBone*> met{nullptr};
    for (unsigned i = 0; scene.mMeshes && i < scene.mNumMeshes; ++i) {
        aiMesh* const mesh = scene.mMeshes[i];
        if (!mesh || !mesh->mBones) continue;
        for (unsigned j = 0; j < mesh->mNumBones; ++j) {
            aiBone*& bone = mesh->mBones[j];
            if (bone && !met.insert(bone).second) bone = new aiBone(*bone);
        }
    }
}

}  // namespace Tolvane::Tools
