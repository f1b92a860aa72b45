#include "tools/rig/MendScene.h"

#include "tools/rig/SceneChannels.h"
#include "tools/rig/SceneTree.h"

#include <cmath>
#include <fstream>
#include <optional>
#include <unordered_set>

namespace Tolvane::Tools {
namespace {

template <typename Key>
void turnRound(Key* keys, unsigned count) {
    for (unsigned i = 0; keys && i < count; ++i) keys[i].mTime = -keys[i].mTime;
}

void turnRound(aiAnimation& animation) {
    animation.mTicksPerSecond = -animation.mTicksPerSecond;
    for (unsigned i = 0; animation.mChannels && i < animation.mNumChannels; ++i) {
        aiNodeAnim* const channel = animation.mChannels[i];
        if (!channel) continue;
        turnRound(channel->mPositionKeys, channel->mNumPositionKeys);
        turnRound(channel->mRotationKeys, channel->mNumRotationKeys);
        turnRound(channel->mScalingKeys, channel->mNumScalingKeys);
    }
}

// It stands among the words before the first block.
std::optional<double> statedRate(const std::string& path) {
    std::ifstream file(path);
    std::string word;
    double rate = 0;
    while (file >> word && word != "{")
        if (word == "frameRate" && file >> rate && std::isfinite(rate) && rate > 0) return rate;
    return std::nullopt;
}

}  // namespace

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

void turnTimeForward(aiScene& scene) {
    if (kindOf(scene) != FileKind::Fbx) return;
    for (const aiAnimation* animation : animationsOf(scene))
        if (animation->mTicksPerSecond < 0) turnRound(const_cast<aiAnimation&>(*animation));
}

void takeStatedRate(aiScene& scene, const std::vector<std::string>& files) {
    if (kindOf(scene) != FileKind::Md5) return;
    for (const std::string& file : files)
        if (const auto rate = statedRate(file))
            for (const aiAnimation* animation : animationsOf(scene))
                const_cast<aiAnimation*>(animation)->mTicksPerSecond = *rate;
}

}  // namespace Tolvane::Tools
