#include "tools/rig/LoadRig.h"

#include "tools/rig/ImportScene.h"
#include "tools/rig/LoadAnimation.h"
#include "tools/rig/SceneJoints.h"

#include <cmath>
#include <map>

namespace Tolvane::Tools {
namespace {

using Weights = std::map<std::string, double>;

Weights skinWeights(const aiScene& scene) {
    Weights weights;
    for (unsigned i = 0; i < scene.mNumMeshes; ++i) {
        const aiMesh& mesh = *scene.mMeshes[i];
        for (unsigned j = 0; j < mesh.mNumBones; ++j) {
            const aiBone& bone = *mesh.mBones[j];
            double& weight = weights[bone.mName.C_Str()];
            for (unsigned k = 0; k < bone.mNumWeights; ++k)
                weight += static_cast<double>(bone.mWeights[k].mWeight);
        }
    }
    return weights;
}

double boneLength(const Joint& joint) {
    if (!joint.parent) return 0;
    const double* end = joint.restLocal[3];
    return std::sqrt(end[0] * end[0] + end[1] * end[1] + end[2] * end[2]);
}

void weigh(Rig& rig, const Weights& skins) {
    double total = 0;
    for (Joint& joint : rig.joints) {
        const auto skinned = skins.find(joint.name);
        if (skins.empty()) joint.weight = boneLength(joint);
        if (skinned != skins.end()) joint.weight = skinned->second;
        total += joint.weight;
    }
    // Where nothing has a weight or a length, all joints weigh the same.
    for (Joint& joint : rig.joints)
        joint.weight =
            total > 0 ? joint.weight / total : 1 / static_cast<double>(rig.joints.size());
}

}  // namespace

Rig loadRig(const std::string& path, const LoadOptions& options) {
    Rig rig;
    rig.file = path;
    Assimp::Importer importer;
    const aiScene& scene = importScene(importer, path, rig.filesRead);
    rig.joints = jointsOf(scene, path);
    poseAtRest(rig);
    weigh(rig, skinWeights(scene));
    loadAnimation(rig, scene, options);
    return rig;
}

}  // namespace Tolvane::Tools
