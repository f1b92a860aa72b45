// The skeleton as it came back in one frame, kept for a picture.
#pragma once

#include <OpenVornik/VMatrix.h>

#include <cstddef>
#include <vector>

namespace Tolvane::Tools {

struct Snapshot {
    std::size_t frame;
    // The world matrices of the rig's first joints; under churn there may be fewer than joints.
    std::vector<VMatrix> worlds;
};

// A picture shows its snapshots side by side; more than these would be too small to tell apart.
constexpr std::size_t kMostSnapshots = 8;

}  // namespace Tolvane::Tools
