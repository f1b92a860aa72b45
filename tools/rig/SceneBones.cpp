#include "tools/rig/SceneBones.h"

#include "tools/rig/Animation.h"
#include "tools/rig/MatrixMath.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace Tolvane::Tools {
namespace {

// As a part of a matrix's size; more than rounding in single precision makes of a deep hierarchy.
constexpr double kSamePlace = 1e-3;

template <typename Visit>
void forEachBone(const aiMesh* mesh, const Visit& visit) {
    if (!mesh || !mesh->mBones) return;
    for (unsigned i = 0; i < mesh->mNumBones; ++i)
        if (mesh->mBones[i]) visit(*mesh->mBones[i]);
}

double weightOf(const aiBone& bone) {
    double sum = 0;
    for (unsigned i = 0; bone.mWeights && i < bone.mNumWeights; ++i)
        sum += static_cast<double>(bone.mWeights[i].mWeight);
    return sum;
}

// How far two matrices are apart, as a part of the size of the second.
double apart(const VMatrix& matrix, const VMatrix& from) {
    double difference = 0;
    double size = 1e-9;
    for (unsigned row = 0; row < 4; ++row)
        for (unsigned column = 0; column < 3; ++column) {
            difference += std::abs(matrix[row][column] - from[row][column]);
            size = std::max(size, std::abs(from[row][column]));
        }
    return std::isfinite(difference) ? difference / size : std::numeric_limits<double>::max();
}

class BoneFinder {
public:
    BoneFinder(const aiScene& scene, const SceneTree& tree)
        : m_tree(tree), m_isCollada(kindOf(scene) == FileKind::Collada) {
        for (unsigned i = 0; scene.mMeshes && i < scene.mNumMeshes; ++i)
            forEachBone(scene.mMeshes[i],
                        [this](const aiBone& bone) { m_names.insert(bone.mName.C_Str()); });
    }

    // The most likely node for a bone, not one of `taken` if there is another: the bones of one
    // skin are different nodes.
    std::optional<std::size_t> find(const aiBone& bone, unsigned mesh,
                                    const std::set<std::size_t>& taken) const {
        const std::vector<std::size_t>& nodes = m_tree.named(bone.mName.C_Str());
        if (nodes.empty()) return std::nullopt;
        if (m_isCollada && !isBesideBone(nodes.front()) && isElsewhere(nodes.front(), bone, mesh))
            return findByPlace(bone, mesh).value_or(nodes.front());
        if (nodes.size() == 1) return nodes.front();
        const auto given = std::find_if(nodes.begin(), nodes.end(), [&](std::size_t node) {
            return m_tree.nodes()[node].node == bone.mNode;
        });
        if (given != nodes.end()) return *given;
        return *std::min_element(nodes.begin(), nodes.end(), [&](std::size_t a, std::size_t b) {
            return unlikeliness(a, bone, mesh, taken) < unlikeliness(b, bone, mesh, taken);
        });
    }

private:
    using Unlikeliness = std::tuple<bool, bool, bool, bool, double>;

    Unlikeliness unlikeliness(std::size_t index, const aiBone& bone, unsigned mesh,
                              const std::set<std::size_t>& taken) const {
        const SceneNode& node = m_tree.nodes()[index];
        const double distance = fromBindPose(index, bone, mesh);
        return {taken.count(index) != 0, distance > kSamePlace, node.isMesh || node.isCameraOrLight,
                !isBesideBone(index), distance};
    }

    bool isElsewhere(std::size_t index, const aiBone& bone, unsigned mesh) const {
        return fromBindPose(index, bone, mesh) > kSamePlace;
    }

    // The reader of COLLADA mistakes a node whose name is that of a bone for the bone, and gives
    // the bone the identifier of that node. Only its place then tells which node it is.
    std::optional<std::size_t> findByPlace(const aiBone& bone, unsigned mesh) const {
        for (std::size_t i = 0; i < m_tree.nodes().size(); ++i)
            if (!m_tree.nodes()[i].isMesh && isBesideBone(i) && !isElsewhere(i, bone, mesh))
                return i;
        return std::nullopt;
    }

    // Bones hang together: most have a bone above or below them.
    bool isBesideBone(std::size_t index) const {
        const SceneNode& node = m_tree.nodes()[index];
        const auto isBone = [this](const aiNode* other) {
            return other && m_names.count(other->mName.C_Str()) != 0;
        };
        if (node.parent && isBone(m_tree.nodes()[*node.parent].node)) return true;
        const aiNode& own = *node.node;
        return own.mChildren &&
               std::any_of(own.mChildren, own.mChildren + own.mNumChildren, isBone);
    }

    // How far a node is from where the bone was when the skin was bound to it. The skin says that
    // relative to its mesh, or to the world.
    double fromBindPose(std::size_t index, const aiBone& bone, unsigned mesh) const {
        const VMatrix bound = inverse(toHost(bone.mOffsetMatrix));
        const VMatrix& world = m_tree.nodes()[index].world;
        double least = apart(world, bound);
        for (const std::size_t shown : m_tree.showing(mesh))
            least = std::min(least, apart(world, multiply(bound, m_tree.nodes()[shown].world)));
        return least;
    }

    const SceneTree& m_tree;
    const bool m_isCollada;
    std::set<std::string> m_names;
};

// Parents have lower numbers, so the climb from the highest is the one that is due; the last that
// is left is above all.
void addBetween(const SceneTree& tree, std::set<std::size_t> climbing,
                std::set<std::size_t>& between) {
    while (climbing.size() > 1) {
        const auto highest = std::prev(climbing.end());
        const std::size_t parent = *tree.nodes()[*highest].parent;
        climbing.erase(highest);
        climbing.insert(parent);
        between.insert(parent);
    }
}

}  // namespace

Bones bonesOf(const aiScene& scene, const SceneTree& tree, std::set<std::size_t>& between) {
    const BoneFinder finder(scene, tree);
    Bones weights;
    for (unsigned mesh = 0; scene.mMeshes && mesh < scene.mNumMeshes; ++mesh) {
        std::set<std::size_t> taken;
        forEachBone(scene.mMeshes[mesh], [&](const aiBone& bone) {
            const auto node = finder.find(bone, mesh, taken);
            if (!node) return;
            taken.insert(*node);
            weights[*node] += weightOf(bone);
        });
        addBetween(tree, std::move(taken), between);
    }
    return weights;
}

}  // namespace Tolvane::Tools
