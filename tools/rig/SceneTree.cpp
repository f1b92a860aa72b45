#include "tools/rig/SceneTree.h"

#include "tools/rig/Animation.h"
#include "tools/rig/MatrixMath.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <unordered_set>
#include <utility>

#include <assimp/commonMetaData.h>

namespace Tolvane::Tools {
namespace {

// The reader puts it between the name of a node and the component that a part of it stands for.
constexpr std::string_view kPartMark = "_$AssimpFbx$_";

struct Due {
    const aiNode* node;
    std::optional<std::size_t> parent;
    // The part right above it.
    const aiNode* part = nullptr;
};

using PartAbove = std::unordered_map<const aiNode*, const aiNode*>;

// The geometry of a node may be moved by itself, which neither the node nor what is below it
// shares.
bool movesGeometryAlone(const aiNode& part) {
    return componentOf(part).compare(0, 9, "Geometric") == 0;
}

SceneNode complete(const Due& due, const PartAbove& above, const std::vector<SceneNode>& nodes) {
    SceneNode node{due.node, due.parent};
    node.local = toHost(due.node->mTransformation);
    for (const aiNode* part = due.part; part; part = above.at(part)) {
        if (movesGeometryAlone(*part)) continue;
        node.parts.push_back(part);
        node.local = multiply(node.local, toHost(part->mTransformation));
    }
    node.world = due.parent ? multiply(node.local, nodes[*due.parent].world) : node.local;
    return node;
}

// This is a loop, because a recursion would overflow the stack on a file that nests very deep. A
// node that is its own descendant is met once.
std::vector<SceneNode> flatten(const aiNode* root) {
    std::vector<SceneNode> nodes;
    PartAbove above;
    std::vector<Due> stack{{root, std::nullopt}};
    std::unordered_set<const aiNode*> met{nullptr};
    while (!stack.empty()) {
        const Due due = stack.back();
        stack.pop_back();
        if (!met.insert(due.node).second) continue;
        Due child{nullptr, due.parent, due.node};
        if (componentOf(*due.node).empty()) {
            nodes.push_back(complete(due, above, nodes));
            child = {nullptr, nodes.size() - 1};
        } else {
            above.emplace(due.node, due.part);
        }
        if (!due.node->mChildren) continue;
        for (unsigned i = due.node->mNumChildren; i > 0; --i) {
            child.node = due.node->mChildren[i - 1];
            stack.push_back(child);
        }
    }
    return nodes;
}

template <typename Thing>
void addNames(Thing* const* things, unsigned count, std::vector<std::string>& names) {
    for (unsigned i = 0; things && i < count; ++i)
        if (things[i]) names.emplace_back(things[i]->mName.C_Str());
}

}  // namespace

SceneTree::SceneTree(const aiScene& scene)
    : m_nodes(flatten(scene.mRootNode)), m_showing(scene.mNumMeshes) {
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        m_named[m_nodes[i].node->mName.C_Str()].push_back(i);
        for (const aiNode* part : m_nodes[i].parts)
            m_partsNamed[part->mName.C_Str()].emplace_back(i, part);
    }
    addMeshes(scene);
    std::vector<std::string> names;
    addNames(scene.mCameras, scene.mNumCameras, names);
    addNames(scene.mLights, scene.mNumLights, names);
    markCamerasAndLights(names);
}

const std::vector<std::size_t>& SceneTree::named(const std::string& name) const {
    static const std::vector<std::size_t> s_none;
    const auto found = m_named.find(name);
    return found == m_named.end() ? s_none : found->second;
}

const std::vector<SceneTree::Part>& SceneTree::partsNamed(const std::string& name) const {
    static const std::vector<Part> s_none;
    const auto found = m_partsNamed.find(name);
    return found == m_partsNamed.end() ? s_none : found->second;
}

void SceneTree::addMeshes(const aiScene& scene) {
    for (std::size_t i = 0; i < m_nodes.size(); ++i) {
        const aiNode& node = *m_nodes[i].node;
        for (unsigned j = 0; node.mMeshes && j < node.mNumMeshes; ++j) {
            m_nodes[i].isMesh = true;
            if (node.mMeshes[j] < scene.mNumMeshes) m_showing[node.mMeshes[j]].push_back(i);
        }
    }
}

// A camera or a light is known by the name of its node alone. Where several nodes have it, it is
// more likely the one that nothing hangs from, and one that follows the joint of its name.
void SceneTree::markCamerasAndLights(const std::vector<std::string>& names) {
    std::map<std::string, std::size_t> counts;
    for (const std::string& name : names) ++counts[name];
    for (const auto& [name, count] : counts) {
        std::vector<std::size_t> likelyLast = named(name);
        std::stable_partition(likelyLast.begin(), likelyLast.end(),
                              [this](std::size_t i) { return m_nodes[i].node->mNumChildren != 0; });
        const std::size_t kept = likelyLast.size() - std::min(count, likelyLast.size());
        for (std::size_t i = kept; i < likelyLast.size(); ++i)
            m_nodes[likelyLast[i]].isCameraOrLight = true;
    }
}

std::string componentOf(const aiNode& node) {
    const std::string_view name = node.mName.C_Str();
    const std::size_t mark = name.find(kPartMark);
    if (mark == std::string_view::npos) return "";
    return std::string(name.substr(mark + kPartMark.size()));
}

FileKind kindOf(const aiScene& scene) {
    aiString format;
    if (scene.mMetaData) scene.mMetaData->Get(AI_METADATA_SOURCE_FORMAT, format);
    const std::string_view reader = format.C_Str();
    for (const auto& [word, kind] :
         {std::pair("Blitz", FileKind::B3d), std::pair("BVH", FileKind::Bvh),
          std::pair("Collada", FileKind::Collada), std::pair("FBX", FileKind::Fbx),
          std::pair("glTF", FileKind::Gltf), std::pair("MD5", FileKind::Md5),
          std::pair("SMD", FileKind::Smd), std::pair("XFile", FileKind::X)})
        if (reader.find(word) != std::string_view::npos) return kind;
    return FileKind::Other;
}

}  // namespace Tolvane::Tools
