// A rig as `tolvane` uses it: joints in a hierarchy, their rest pose, and their movement over a
// number of frames. Once read, it is independent of its file.
#pragma once

#include "tools/rig/Animation.h"

#include <OpenVornik/VMatrix.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

// More than any real rig has. A file that has more is damaged.
constexpr std::size_t kMostJoints = 20'000;
constexpr std::size_t kMostFrames = 1'000'000;

// A node of the file's scene, relative to the one above it.
struct Link {
    VMatrix rest = {};
    // Nothing if it does not move.
    std::optional<Channel> channel = {};
};

struct Joint {
    VMatrix local(double tick) const;
    // For a root, the world matrix of the node above it.
    VMatrix above(double tick) const;

    std::string name;
    // An index into Rig::joints, less than this joint's own; nothing for a root.
    std::optional<std::size_t> parent;
    // For a root, the world matrix of the node above it in the rest pose.
    VMatrix aboveRoot = {};
    VMatrix restLocal = {};
    VMatrix restWorld = {};
    // In a file with skins, this joint's share of all their weights; otherwise its bone's share of
    // the length of all bones. A bone joins a joint to its parent in the rest pose.
    double weight = 0;
    // Nothing if the joint does not move relative to its parent.
    std::optional<Channel> channel = {};
    // Empty for most. Where nodes that are no joints move a root, these nodes, from the lowest up.
    // Where such nodes lie between a joint and its parent and any of them or the joint moves, the
    // joint's own node and these, and `channel` is empty.
    std::vector<Link> links = {};
};

struct Rig {
    std::string file;
    // `file` itself, and the files that it refers to.
    std::vector<std::string> filesRead;
    // At least one. Parents stand before their children.
    std::vector<Joint> joints;
    // False if nothing in the file showed which nodes are joints, so that every one was taken.
    bool hasSkeleton = true;
    // Which way is up in the world: 0, 1 or 2 for x, y or z.
    unsigned upAxis = 1;
    // Nothing if the file does not say.
    std::optional<double> metresPerUnit = {};
    // The name of the animation that moves the joints; empty if none does, or it has no name.
    std::string animation = {};
    std::size_t frameCount = 1;
    double framesPerSecond = 30;
    double ticksPerFrame = 1;
};

// Computes the rest world matrices from the rest local ones.
void poseAtRest(Rig& rig);

}  // namespace Tolvane::Tools
