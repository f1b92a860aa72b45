#include "tools/rig/SceneJoints.h"

#include "tools/rig/MatrixMath.h"
#include "tools/support/Error.h"

#include <algorithm>
#include <set>

namespace Tolvane::Tools {
namespace {

struct SceneNode {
    const aiNode* node;
    std::optional<std::size_t> parent;
    bool isJoint = false;
    bool isBelowJoint = false;
    bool isAboveJoint = false;
};

// Parents before children, siblings in the file's order. This is a loop, because a recursion would
// overflow the stack on a file that nests very deep.
std::vector<SceneNode> flatten(const aiNode& root) {
    std::vector<SceneNode> nodes;
    std::vector<SceneNode> due{{&root, std::nullopt}};
    while (!due.empty()) {
        const aiNode& node = *due.back().node;
        nodes.push_back(due.back());
        due.pop_back();
        for (unsigned i = node.mNumChildren; i > 0; --i)
            due.push_back({node.mChildren[i - 1], nodes.size() - 1});
    }
    return nodes;
}

std::set<std::string> namesOfSkinningAndAnimated(const aiScene& scene) {
    std::set<std::string> names;
    for (unsigned i = 0; i < scene.mNumMeshes; ++i)
        for (unsigned j = 0; j < scene.mMeshes[i]->mNumBones; ++j)
            names.insert(scene.mMeshes[i]->mBones[j]->mName.C_Str());
    for (unsigned i = 0; i < scene.mNumAnimations; ++i)
        for (unsigned j = 0; j < scene.mAnimations[i]->mNumChannels; ++j)
            names.insert(scene.mAnimations[i]->mChannels[j]->mNodeName.C_Str());
    return names;
}

void markJoints(std::vector<SceneNode>& nodes, const std::set<std::string>& names) {
    for (SceneNode& node : nodes) {
        node.isJoint = names.count(node.node->mName.C_Str()) != 0;
        if (!node.parent) continue;
        const SceneNode& parent = nodes[*node.parent];
        node.isBelowJoint = parent.isJoint || parent.isBelowJoint;
    }
    for (auto node = nodes.rbegin(); node != nodes.rend(); ++node)
        if (node->parent && (node->isJoint || node->isAboveJoint))
            nodes[*node->parent].isAboveJoint = true;

    const bool anyJoint =
        std::any_of(nodes.begin(), nodes.end(), [](const SceneNode& node) { return node.isJoint; });
    for (SceneNode& node : nodes)
        if (!anyJoint || (node.isBelowJoint && node.isAboveJoint)) node.isJoint = true;
}

}  // namespace

std::vector<Joint> jointsOf(const aiScene& scene, const std::string& path) {
    std::vector<SceneNode> nodes = flatten(*scene.mRootNode);
    markJoints(nodes, namesOfSkinningAndAnimated(scene));

    std::vector<Joint> joints;
    std::vector<std::optional<std::size_t>> jointOf(nodes.size());
    std::vector<VMatrix> worlds(nodes.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const SceneNode& node = nodes[i];
        const VMatrix local = toHost(node.node->mTransformation);
        const VMatrix above = node.parent ? worlds[*node.parent] : VMatrix();
        worlds[i] = multiply(local, above);
        if (!node.isJoint) continue;
        if (joints.size() == kMostJoints)
            throw Error(path + ": has more than " + std::to_string(kMostJoints) + " joints");
        // All nodes between two joints are joints, so the parent joint can only be the parent node.
        const auto parent = node.parent ? jointOf[*node.parent] : std::nullopt;
        joints.push_back({node.node->mName.C_Str(), parent, parent ? VMatrix() : above, local});
        jointOf[i] = joints.size() - 1;
    }
    return joints;
}

}  // namespace Tolvane::Tools
