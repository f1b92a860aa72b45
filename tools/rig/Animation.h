// The movement of a rig's joints: keys over time, as the file has them, from which the joint's
// local matrix at any time is made. Times are in ticks, whose length is the animation's own matter.
#pragma once

#include <OpenVornik/VMatrix.h>

#include <vector>

#include <assimp/anim.h>
#include <assimp/matrix4x4.h>

namespace Tolvane::Tools {

// A column-vector matrix of the file as one of the host's.
VMatrix toHost(const aiMatrix4x4& matrix);

// The keys of one joint, in ascending time; no list is empty.
struct Channel {
    std::vector<aiVectorKey> positions;
    std::vector<aiQuatKey> rotations;
    std::vector<aiVectorKey> scalings;

    // Between keys, positions and scalings are interpolated linearly and rotations along the
    // shortest arc; before the first and after the last key they stay. The matrix scales, then
    // rotates, then moves.
    VMatrix sample(double tick) const;
    double lastTick() const;
};

}  // namespace Tolvane::Tools
