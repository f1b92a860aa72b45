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
                                    const std::map<std::size_t, double>& bones) {
    std::set<std::size_t> nodes;
    for (const aiAnimation* animation : animationsOf(scene))
        for (const auto& [node, channel] : channelsOf(*animation, tree, bones)) nodes.insert(node);
    return nodes;
}

std::set<std::size_t> bonesOrAnimated(const Skeleton& skeleton) {
    std::set<std::size_t> nodes;
    for (const auto& [node, weight] : skeleton.bones) nodes.insert(node);
    if (!nodes.empty()) return nodes;
    for (const std::size_t node : skeleton.animated)
        if (!skeleton.tree.nodes()[node].isCameraOrLight) nodes.insert(node);
    return nodes;
}

// The reader of BVH files makes nodes of end sites, which say where a joint ends and are none, and
// the reader of FBX files makes nodes of parts of a node's transformation.
bool isMadeUp(const SceneNode& node, bool isBvh) {
    const std::string_view name = node.node->mName.C_Str();
    return (isBvh && name.substr(0, 8) == "EndSite_") ||
           name.find("_$AssimpFbx$_") != std::string_view::npos;
}

std::vector<std::size_t> withWhatIsBelow(const SceneTree& tree, const std::set<std::size_t>& sure,
                                         bool isBvh) {
    std::vector<std::size_t> joints;
    std::vector<bool> isInside(tree.nodes().size());
    for (std::size_t i = 0; i < isInside.size(); ++i) {
        const SceneNode& node = tree.nodes()[i];
        const bool isBelow = node.parent && isInside[*node.parent];
        const bool isSure = sure.count(i) != 0;
        const bool isOther = node.isMesh || node.isCameraOrLight || isMadeUp(node, isBvh);
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

std::size_t findRoot(const SceneTree& tree, const std::string& path, const std::string& name) {
    const std::vector<std::size_t>& nodes = tree.named(name);
    if (nodes.empty()) throw Error(path + ": has no node \"" + name + "\" for --root");
    return nodes.front();
}

std::vector<std::size_t> allOf(const SceneTree& tree) {
    std::vector<std::size_t> nodes(tree.nodes().size());
    std::iota(nodes.begin(), nodes.end(), 0);
    return nodes;
}

Link linkOf(std::size_t node, const Skeleton& skeleton, const Channels& channels,
            const std::string& path) {
    const SceneNode& own = skeleton.tree.nodes()[node];
    const auto found = channels.find(node);
    if (found == channels.end()) return {own.local, std::nullopt};
    return {own.local, channelOf(*found->second, *own.node, path)};
}

// Nodes side by side that do not move become one link.
void append(std::vector<Link>& links, Link next) {
    if (!links.empty() && !links.back().channel && !next.channel)
        links.back().rest = multiply(links.back().rest, next.rest);
    else
        links.push_back(std::move(next));
}

bool anyMoves(const std::vector<Link>& links) {
    return std::any_of(links.begin(), links.end(),
                       [](const Link& link) { return link.channel.has_value(); });
}

// `between` lies between the joint and its parent.
void becomeChain(Joint& joint, const std::vector<Link>& between) {
    append(joint.links, {joint.restLocal, std::move(joint.channel)});
    joint.channel.reset();
    for (const Link& link : between) {
        joint.restLocal = multiply(joint.restLocal, link.rest);
        append(joint.links, link);
    }
    if (!anyMoves(joint.links)) joint.links.clear();
}

}  // namespace

Skeleton skeletonOf(const aiScene& scene, const std::string& path,
                    const std::optional<std::string>& root) {
    Skeleton skeleton{SceneTree(scene), {}, {}, {}, true};
    const SceneTree& tree = skeleton.tree;
    skeleton.bones = bonesOf(scene, tree);
    skeleton.animated = animatedNodes(scene, tree, skeleton.bones);

    std::set<std::size_t> sure = bonesOrAnimated(skeleton);
    if (root) {
        const std::size_t top = findRoot(tree, path, *root);
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

std::vector<Joint> jointsOf(const Skeleton& skeleton, const Channels& channels,
                            const std::string& path) {
    const std::vector<SceneNode>& nodes = skeleton.tree.nodes();
    std::vector<Joint> joints;
    std::vector<std::optional<std::size_t>> jointOf(nodes.size());
    for (const std::size_t index : skeleton.joints) {
        const SceneNode& node = nodes[index];
        Link own = linkOf(index, skeleton, channels, path);
        std::vector<Link> between;
        std::optional<std::size_t> above = node.parent;
        for (; above && !jointOf[*above]; above = nodes[*above].parent)
            append(between, linkOf(*above, skeleton, channels, path));

        Joint joint;
        joint.name = node.node->mName.C_Str();
        joint.restLocal = node.local;
        joint.channel = std::move(own.channel);
        if (above) {
            joint.parent = jointOf[*above];
            if (!between.empty()) becomeChain(joint, between);
        } else if (node.parent) {
            joint.aboveRoot = nodes[*node.parent].world;
            if (anyMoves(between)) joint.links = std::move(between);
        }
        jointOf[index] = joints.size();
        joints.push_back(std::move(joint));
    }
    return joints;
}

}  // namespace Tolvane::Tools
