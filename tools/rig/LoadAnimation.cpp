#include "tools/rig/LoadAnimation.h"

#include "tools/rig/SceneChannels.h"
#include "tools/rig/Timing.h"
#include "tools/support/Error.h"

namespace Tolvane::Tools {
namespace {

const aiAnimation* choose(const Rig& rig, const aiScene& scene,
                          const std::optional<std::string>& name) {
    std::string names;
    for (const aiAnimation* animation : animationsOf(scene)) {
        const std::string own = animation->mName.C_Str();
        if (!name || *name == own) return animation;
        names += (names.empty() ? "\"" : ", \"") + own + '"';
    }
    if (!name) return nullptr;
    throw Error(rig.file + ": has no animation \"" + *name + "\", " +
                (names.empty() ? "nor any other" : "only " + names));
}

}  // namespace

void loadAnimation(Rig& rig, const aiScene& scene, const Skeleton& skeleton,
                   const LoadOptions& options) {
    const aiAnimation* animation = choose(rig, scene, options.animation);
    const Channels channels =
        animation ? channelsOf(*animation, skeleton.tree, skeleton.bones) : Channels();
    addJoints(rig, skeleton, channels);
    rig.framesPerSecond = options.framesPerSecond.value_or(rig.framesPerSecond);
    if (!animation) return;

    const Timing timing =
        timingOf(*animation, channels, kindOf(scene), options.framesPerSecond, rig.file);
    if (!(timing.frameCount <= static_cast<double>(kMostFrames)))
        throw Error(rig.file + ": has an animation of more than a million frames");
    rig.animation = animation->mName.C_Str();
    rig.framesPerSecond = timing.framesPerSecond;
    rig.ticksPerFrame = timing.ticksPerFrame;
    rig.frameCount = static_cast<std::size_t>(timing.frameCount);
}

}  // namespace Tolvane::Tools
