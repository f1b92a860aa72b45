// The movement of a rig's joints: keys over time, as the file has them, from which the joint's
// local matrix at any time is made. Times are in ticks, whose length each animation defines.
#pragma once

#include <OpenVornik/VMatrix.h>

#include <vector>

#include <assimp/anim.h>
#include <assimp/matrix4x4.h>

namespace Tolvane::Tools {

// Turns a matrix of the file, which multiplies column vectors, into one of the host, which
// multiplies row vectors.
VMatrix toHost(const aiMatrix4x4& matrix);

// The keys of one joint, in order of time. No list is empty.
struct Channel {
    std::vector<aiVectorKey> positions;
    std::vector<aiQuatKey> rotations;
    std::vector<aiVectorKey> scalings;

    // Between keys, positions and scalings are interpolated linearly and rotations along the
    // shortest arc; before the first key and after the last, that key holds. The matrix scales,
    // then rotates, then moves.
    VMatrix sample(double tick) const;
    double lastTick() const;
};

}  // namespace Tolvane::Tools
