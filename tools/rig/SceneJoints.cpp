#include "tools/rig/SceneJoints.h"

#include "tools/rig/MatrixMath.h"
#include "tools/rig/SceneBones.h"
#include "tools/support/Error.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <utility>

namespace Tolvane::Tools {
namespace {

std::set<std::size_t> animatedNodes(const aiScene& scene, const SceneTree& tree,
                                    const Bones& bones) {
    std::set<std::size_t> nodes;
    for (const aiAnimation* animation : animationsOf(scene)) {
        const Channels channels = channelsOf(*animation, tree, bones);
        for (std::size_t i = 0; i < tree.nodes().size(); ++i)
            if (areMoving(channels, tree.nodes()[i])) nodes.insert(i);
    }
    return nodes;
}

bool isObject(const SceneNode& node) { return node.isMesh || node.isCameraOrLight; }

std::set<std::size_t> bonesOrAnimated(const Skeleton& skeleton) {
    std::set<std::size_t> nodes;
    const std::vector<SceneNode>& all = skeleton.tree.nodes();
    for (const auto& [node, weight] : skeleton.bones) nodes.insert(node);
    if (!nodes.empty()) {
        for (const std::size_t node : skeleton.betweenBones)
            if (all[node].parent && !isObject(all[node])) nodes.insert(node);
        return nodes;
    }
    for (const std::size_t node : skeleton.animated)
        if (!all[node].isCameraOrLight) nodes.insert(node);
    return nodes;
}

// The reader of BVH files makes nodes of end sites, which say where a joint ends and are none.
bool isEndSite(const SceneNode& node, bool isBvh) {
    return isBvh && std::string_view(node.node->mName.C_Str()).substr(0, 8) == "EndSite_";
}

std::vector<std::size_t> withWhatIsBelow(const SceneTree& tree, const std::set<std::size_t>& sure,
                                         bool isBvh) {
    std::vector<std::size_t> joints;
    std::vector<bool> isInside(tree.nodes().size());
    for (std::size_t i = 0; i < isInside.size(); ++i) {
        const SceneNode& node = tree.nodes()[i];
        const bool isBelow = node.parent && isInside[*node.parent];
        const bool isSure = sure.count(i) != 0;
        const bool isOther = isObject(node) || isEndSite(node, isBvh);
        isInside[i] = isSure || isBelow;
        if (isSure || (isBelow && !isOther)) joints.push_back(i);
    }
    return joints;
}

bool isWithin(const SceneTree& tree, std::size_t node, std::size_t root) {
    std::optional<std::size_t> at = node;
    while (at && *at > root) at = tree.nodes()[*at].parent;
    return at == root;
}

std::size_t findRoot(const Skeleton& skeleton, const std::string& path, const std::string& name) {
    const std::vector<std::size_t>& nodes = skeleton.tree.named(name);
    if (nodes.empty()) throw Error(path + ": has no node \"" + name + "\" for --root");
    const auto likelihood = [&](std::size_t node) {
        return skeleton.bones.count(node) != 0 ? 2 : skeleton.animated.count(node) != 0 ? 1 : 0;
    };
    return *std::max_element(nodes.begin(), nodes.end(), [&](std::size_t a, std::size_t b) {
        return likelihood(a) < likelihood(b);
    });
}

std::vector<std::size_t> allOf(const SceneTree& tree) {
    std::vector<std::size_t> nodes(tree.nodes().size());
    std::iota(nodes.begin(), nodes.end(), 0);
    return nodes;
}

// Nodes side by side that do not move become one link.
void append(Links& links, Link next) {
    if (!links.empty() && !links.back().channel && !next.channel)
        links.back().rest = multiply(links.back().rest, next.rest);
    else
        links.push_back(std::move(next));
}

bool anyMoves(const Links& links) {
    return std::any_of(links.begin(), links.end(),
                       [](const Link& link) { return link.channel.has_value(); });
}

// Makes the joints and carriers of a rig, from the channels of one animation.
class JointBuilder {
public:
    JointBuilder(Rig& rig, const Skeleton& skeleton, const Channels& channels)
        : m_rig(rig),
          m_nodes(skeleton.tree.nodes()),
          m_channels(channels),
          m_jointOf(m_nodes.size()),
          m_isCarried(m_nodes.size()),
          m_carrierOf(m_nodes.size()) {
        for (std::size_t i = 0; i < m_nodes.size(); ++i) {
            const auto parent = m_nodes[i].parent;
            m_isCarried[i] = areMoving(channels, m_nodes[i]) || (parent && m_isCarried[*parent]);
        }
        std::vector<bool> isJoint(m_nodes.size());
        for (const std::size_t joint : skeleton.joints) isJoint[joint] = true;
        for (const SceneNode& node : m_nodes) {
            const bool isBelowJoint = node.parent && isJoint[*node.parent];
            m_jointAbove.push_back(isBelowJoint  ? node.parent
                                   : node.parent ? m_jointAbove[*node.parent]
                                                 : std::nullopt);
        }
    }

    void add(std::size_t index) {
        const SceneNode& node = m_nodes[index];
        Joint joint;
        joint.name = node.node->mName.C_Str();
        joint.restLocal = node.local;
        Links links;
        appendNode(index, links);

        if (const auto above = m_jointAbove[index]) {
            joint.parent = m_jointOf[*above];
            for (std::size_t i = *node.parent; i != *above; i = *m_nodes[i].parent) {
                joint.restLocal = multiply(joint.restLocal, m_nodes[i].local);
                appendNode(i, links);
            }
        } else if (node.parent) {
            joint.aboveRoot = m_nodes[*node.parent].world;
            if (m_isCarried[*node.parent]) joint.carrier = carrierOf(*node.parent);
        }
        if (links.size() == 1)
            joint.channel = std::move(links.front().channel);
        else if (anyMoves(links))
            joint.links = std::move(links);
        m_jointOf[index] = m_rig.joints.size();
        m_rig.joints.push_back(std::move(joint));
    }

private:
    std::size_t carrierOf(std::size_t index) {
        std::vector<std::size_t> missing;
        std::optional<std::size_t> above = index;
        for (; above && !m_carrierOf[*above]; above = m_nodes[*above].parent)
            missing.push_back(*above);
        for (; !missing.empty(); missing.pop_back()) {
            const auto parent = m_nodes[missing.back()].parent;
            Carrier carrier{parent ? m_carrierOf[*parent] : std::nullopt, {}};
            appendNode(missing.back(), carrier.links);
            m_carrierOf[missing.back()] = m_rig.carriers.size();
            m_rig.carriers.push_back(std::move(carrier));
        }
        return *m_carrierOf[index];
    }

    void appendNode(std::size_t index, Links& links) const {
        const SceneNode& node = m_nodes[index];
        if (m_channels.count(node.node) != 0 && !node.parts.empty()) {
            appendWhole(node, links);
            return;
        }
        append(links, linkOf(*node.node));
        for (const aiNode* part : node.parts) append(links, linkOf(*part));
    }

    // A channel for a node that has parts moves the node as a whole. The reader has put the turn
    // that comes last into it, but not the other way round, as it should.
    void appendWhole(const SceneNode& node, Links& links) const {
        for (const aiNode* part : node.parts) {
            if (componentOf(*part) != "PostRotation") continue;
            const VMatrix turn = toHost(part->mTransformation);
            append(links, {multiply(turn, turn), std::nullopt});
        }
        append(links, linkOf(*node.node));
    }

    Link linkOf(const aiNode& node) const {
        const VMatrix rest = toHost(node.mTransformation);
        const auto found = m_channels.find(&node);
        if (found == m_channels.end()) return {rest, std::nullopt};
        return {rest, channelOf(*found->second, node, m_rig.file)};
    }

    Rig& m_rig;
    const std::vector<SceneNode>& m_nodes;
    const Channels& m_channels;
    // All by the index of a node.
    std::vector<std::optional<std::size_t>> m_jointAbove;
    std::vector<std::optional<std::size_t>> m_jointOf;
    std::vector<bool> m_isCarried;
    std::vector<std::optional<std::size_t>> m_carrierOf;
};

}  // namespace

Skeleton skeletonOf(const aiScene& scene, const std::string& path,
                    const std::optional<std::string>& root) {
    Skeleton skeleton{SceneTree(scene), {}, {}, {}, {}, true};
    const SceneTree& tree = skeleton.tree;
    skeleton.bones = bonesOf(scene, tree, skeleton.betweenBones);
    skeleton.animated = animatedNodes(scene, tree, skeleton.bones);

    std::set<std::size_t> sure = bonesOrAnimated(skeleton);
    if (root) {
        const std::size_t top = findRoot(skeleton, path, *root);
        std::set<std::size_t> within{top};
        for (const std::size_t node : sure)
            if (isWithin(tree, node, top)) within.insert(node);
        sure = within;
    }
    const bool isBvh = kindOf(scene) == FileKind::Bvh;
    skeleton.isFound = !sure.empty();
    skeleton.joints = skeleton.isFound ? withWhatIsBelow(tree, sure, isBvh) : allOf(tree);
    if (skeleton.joints.size() > kMostJoints)
        throw Error(path + ": has more than " + std::to_string(kMostJoints) + " joints");
    return skeleton;
}

void addJoints(Rig& rig, const Skeleton& skeleton, const Channels& channels) {
    JointBuilder builder(rig, skeleton, channels);
    for (const std::size_t node : skeleton.joints) builder.add(node);
}

}  // namespace Tolvane::Tools
