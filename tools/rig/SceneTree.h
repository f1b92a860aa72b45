// The nodes of a scene as a list, each of them once, whatever its file makes of the tree.
#pragma once

#include <OpenVornik/VMatrix.h>

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <assimp/scene.h>

namespace Tolvane::Tools {

struct SceneNode {
    const aiNode* node;
    // An index into the list, less than this node's own; nothing for the root.
    std::optional<std::size_t> parent;
    // The reader of FBX files splits a node's transformation (its turn about a pivot, say) into
    // nodes above it. These are parts of the node, from the lowest up, and in no list themselves.
    std::vector<const aiNode*> parts = {};
    // Relative to the parent, with the parts.
    VMatrix local = {};
    VMatrix world = {};
    bool isMesh = false;
    bool isCameraOrLight = false;
};

class SceneTree {
public:
    // `scene` must outlive the tree.
    explicit SceneTree(const aiScene& scene);

    // Parents before their children, siblings in the file's order.
    const std::vector<SceneNode>& nodes() const noexcept { return m_nodes; }
    // In the order of the list; none if no node has the name.
    const std::vector<std::size_t>& named(const std::string& name) const;
    // The parts of nodes that have this name, each with the index of its node.
    using Part = std::pair<std::size_t, const aiNode*>;
    const std::vector<Part>& partsNamed(const std::string& name) const;
    // The nodes that show a mesh, by the mesh's number in the scene.
    const std::vector<std::size_t>& showing(unsigned mesh) const { return m_showing[mesh]; }

private:
    void addMeshes(const aiScene& scene);
    void markCamerasAndLights(const std::vector<std::string>& names);

    std::vector<SceneNode> m_nodes;
    std::unordered_map<std::string, std::vector<std::size_t>> m_named;
    std::unordered_map<std::string, std::vector<Part>> m_partsNamed;
    std::vector<std::vector<std::size_t>> m_showing;
};

// The component of a node's transformation that a part of it stands for; empty if it is no part.
std::string componentOf(const aiNode& node);

enum class FileKind { B3d, Bvh, Collada, Fbx, Gltf, Md5, Smd, X, Other };

// The kind of file that a scene was first read from.
FileKind kindOf(const aiScene& scene);

}  // namespace Tolvane::Tools
