#include "tools/rig/LoadRig.h"

#include "tools/rig/ImportScene.h"
#include "tools/rig/LoadAnimation.h"
#include "tools/rig/SceneJoints.h"
#include "tools/rig/World.h"

#include <cmath>

namespace Tolvane::Tools {
namespace {

double boneLength(const Joint& joint) {
    if (!joint.parent) return 0;
    const double* end = joint.restLocal[3];
    return std::sqrt(end[0] * end[0] + end[1] * end[1] + end[2] * end[2]);
}

void weigh(Rig& rig, const Skeleton& skeleton) {
    bool isSkinned = false;
    for (std::size_t i = 0; i < rig.joints.size(); ++i) {
        const auto bone = skeleton.bones.find(skeleton.joints[i]);
        if (bone == skeleton.bones.end()) continue;
        rig.joints[i].weight = bone->second;
        isSkinned = true;
    }
    double total = 0;
    for (Joint& joint : rig.joints) {
        if (!isSkinned) joint.weight = boneLength(joint);
        total += joint.weight;
    }
    // Where nothing has a weight or a length, all joints weigh the same.
    const bool isKnown = total > 0 && std::isfinite(total);
    for (Joint& joint : rig.joints)
        joint.weight = isKnown ? joint.weight / total : 1 / static_cast<double>(rig.joints.size());
}

}  // namespace

Rig loadRig(const std::string& path, const LoadOptions& options) {
    Rig rig;
    rig.file = path;
    Assimp::Importer importer;
    const aiScene& scene = importScene(importer, path, rig.filesRead);
    const Skeleton skeleton = skeletonOf(scene, path, options.root);
    rig.hasSkeleton = skeleton.isFound;
    const World world = worldOf(scene);
    rig.upAxis = world.upAxis;
    rig.metresPerUnit = world.metresPerUnit;
    loadAnimation(rig, scene, skeleton, options);
    poseAtRest(rig);
    weigh(rig, skeleton);
    return rig;
}

}  // namespace Tolvane::Tools
