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

// A node of the file's scene, or a part of its transformation, relative to what is above it.
struct Link {
    VMatrix rest = {};
    // Nothing if it does not move.
    std::optional<Channel> channel = {};
};

// From the lowest up; their product is the matrix of all.
using Links = std::vector<Link>;

// The product at a time.
VMatrix matrixOf(const Links& links, double tick);

struct Joint {
    // Relative to the parent; of a root, to the node above it.
    VMatrix local(double tick) const;

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
    // If there are any, they make the local matrix, and `channel` is empty: the joint's own node in
    // its parts, and nodes that are no joints between it and its parent.
    Links links = {};
    // For a root below nodes that move, the lowest of these: an index into Rig::carriers.
    std::optional<std::size_t> carrier = {};
};

// A node above the roots that is no joint.
struct Carrier {
    // An index into Rig::carriers, less than this one's own; nothing for the topmost.
    std::optional<std::size_t> parent;
    // Relative to the parent.
    Links links;
};

struct Rig {
    std::string file;
    // `file` itself, and the files that it refers to.
    std::vector<std::string> filesRead;
    // At least one. Parents stand before their children.
    std::vector<Joint> joints;
    // The nodes above such roots as do not stand still. Parents stand before their children.
    std::vector<Carrier> carriers;
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

// The world matrices of the carriers at a time.
std::vector<VMatrix> poseCarriers(const Rig& rig, double tick);

}  // namespace Tolvane::Tools
