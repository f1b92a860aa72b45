#include "tools/node/RigFrame.h"

#include "tools/rig/MatrixMath.h"

namespace Tolvane::Tools {

RigFrame::RigFrame(const Rig& rig) : m_rig(rig) {
    for (const Joint& joint : rig.joints) {
        PosedJoint posed{joint.name.c_str(), joint.weight, {}};
        posed.matrices[kRestWorld] = joint.restWorld;
        posed.matrices[kRestLocal] = joint.restLocal;
        posed.matrices[kInverseRestWorld] = inverse(joint.restWorld);
        m_joints.push_back(posed);
        m_inverseRestLocals.push_back(inverse(joint.restLocal));
    }
    pose(0);
}

void RigFrame::pose(std::size_t frame) {
    const double tick = static_cast<double>(frame) * m_rig.ticksPerFrame;
    const std::vector<VMatrix> carriers = poseCarriers(m_rig, tick);
    for (std::size_t i = 0; i < m_joints.size(); ++i) {
        const Joint& joint = m_rig.joints[i];
        auto& matrices = m_joints[i].matrices;
        matrices[kParentWorld] = joint.parent    ? m_joints[*joint.parent].matrices[kWorld]
                                 : joint.carrier ? carriers[*joint.carrier]
                                                 : joint.aboveRoot;
        matrices[kLocal] = joint.local(tick);
        matrices[kWorld] = multiply(matrices[kLocal], matrices[kParentWorld]);
        matrices[kSkinning] = multiply(matrices[kInverseRestWorld], matrices[kWorld]);
        matrices[kLocalFromRest] = multiply(matrices[kLocal], m_inverseRestLocals[i]);
    }
}

}  // namespace Tolvane::Tools
