#include "tools/rig/RigInfo.h"

#include "tools/rig/ImportScene.h"
#include "tools/rig/SceneJoints.h"
#include "tools/rig/Timing.h"

namespace Tolvane::Tools {
namespace {

// More than any file can hold, and still exact in any program that reads it.
constexpr double kMostFramesTold = 1e15;

void countJoints(RigInfo& info, const Skeleton& skeleton) {
    for (const std::size_t joint : skeleton.joints) {
        const bool isBone = skeleton.bones.count(joint) != 0;
        const bool isAnimated = skeleton.animated.count(joint) != 0;
        ++info.joints;
        info.bones += isBone;
        info.animated += isAnimated;
        info.inBetween += !isBone && !isAnimated;
    }
}

void countMeshes(RigInfo& info, const aiScene& scene) {
    for (unsigned i = 0; scene.mMeshes && i < scene.mNumMeshes; ++i) {
        if (!scene.mMeshes[i]) continue;
        ++info.meshes;
        info.skins += scene.mMeshes[i]->HasBones();
    }
}

TimingInfo inShort(const Timing& timing) {
    // A number that is none would be more than any.
    const double frames = timing.frameCount < kMostFramesTold ? timing.frameCount : kMostFramesTold;
    return {timing.seconds, timing.framesPerSecond, static_cast<std::size_t>(frames)};
}

void addAnimations(RigInfo& info, const aiScene& scene, const Skeleton& skeleton) {
    for (const aiAnimation* animation : animationsOf(scene)) {
        const Channels channels = channelsOf(*animation, skeleton.tree, skeleton.bones);
        info.animations.push_back({animation->mName.C_Str()});
        if (hasTimeUnit(*animation))
            info.animations.back().timing =
                inShort(timingOf(*animation, channels, kindOf(scene), std::nullopt, info.file));
    }
}

}  // namespace

RigInfo loadInfo(const std::string& path, const std::optional<std::string>& root) {
    Assimp::Importer importer;
    std::vector<std::string> filesRead;
    const aiScene& scene = importScene(importer, path, filesRead);
    const Skeleton skeleton = skeletonOf(scene, path, root);
    RigInfo info;
    info.file = path;
    info.hasSkeleton = skeleton.isFound;
    info.world = worldOf(scene);
    countJoints(info, skeleton);
    countMeshes(info, scene);
    addAnimations(info, scene, skeleton);
    return info;
}

}  // namespace Tolvane::Tools
