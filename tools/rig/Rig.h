// A rig as `tolvane` uses it: joints in a hierarchy, their rest pose, and their movement over a
// number of frames. It no longer depends on the file that it came from.
#pragma once

#include "tools/rig/Animation.h"

#include <OpenVornik/VMatrix.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct Joint {
    std::string name;
    // Stands before this joint in the rig; nothing for a root.
    std::optional<std::size_t> parent;
    // The world matrix of what stands above a root and is no joint; it does not move.
    VMatrix aboveRoot = {};
    VMatrix restLocal = {};
    VMatrix restWorld = {};
    // Where the file has skins, this joint's share of all their weights; else its bone's share of
    // the length of all bones, a bone being what joins a joint to its parent in the rest pose.
    double weight = 0;
    // Nothing for a joint that stays in its rest pose relative to its parent.
    std::optional<Channel> channel = {};
};

struct Rig {
    std::string file;
    // Of these, `file` is the first; the others are those that it refers to.
    std::vector<std::string> filesRead;
    // At least one. A parent stands before its children.
    std::vector<Joint> joints;
    std::size_t frameCount = 1;
    double framesPerSecond = 30;
    double ticksPerFrame = 1;
};

// Sets the rest world matrices by the rest local ones.
void poseAtRest(Rig& rig);

}  // namespace Tolvane::Tools
