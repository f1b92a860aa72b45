// The pose of a rig in one frame: for each joint the matrices that a transform record holds. What
// each of them means is decided here; the plugin carries them without knowing. All multiply row
// vectors from the right.
#pragma once

#include "tools/rig/Rig.h"

#include <OpenVornik/VMatrix.h>
#include <OpenVornik/VString.h>

#include <array>
#include <cstddef>
#include <vector>

namespace Tolvane::Tools {

enum TransformMatrix : std::size_t {
    kWorld,             // 0: from the joint to the world.
    kLocal,             // 1: from the joint to its parent.
    kRestWorld,         // 2: as 0, in the rest pose.
    kRestLocal,         // 3: as 1, in the rest pose.
    kInverseRestWorld,  // 4: from the world to the joint at rest.
    kSkinning,          // 5: 4 and then 0, which moves a skinned point from rest to the pose.
    kParentWorld,       // 6: from the parent to the world; of a root, from the node above it.
    kLocalFromRest,     // 7: 1 and then the inverse of 3, so that 7 and then 3 gives 1.
    kMatrixCount
};

struct PosedJoint {
    VString name;
    double weight = 0;
    std::array<VMatrix, kMatrixCount> matrices;
};

// The joints of a rig, posed in one frame after another. `rig` must outlive it.
class RigFrame {
public:
    explicit RigFrame(const Rig& rig);

    void pose(std::size_t frame);
    const std::vector<PosedJoint>& joints() const noexcept { return m_joints; }

private:
    const Rig& m_rig;
    std::vector<PosedJoint> m_joints;
    std::vector<VMatrix> m_inverseRestLocals;
};

}  // namespace Tolvane::Tools
