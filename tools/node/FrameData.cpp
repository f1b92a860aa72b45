#include "tools/node/FrameData.h"

namespace Tolvane::Tools {

FrameData frameData(const VString& name, const std::vector<PosedJoint>& joints,
                    const std::vector<Limb>& limbs, Share share) {
    FrameData data{{name, &joints.front(), {}}, {}};
    for (std::size_t i = 0; i < countOf(share, joints.size()); ++i)
        data.rig.joints.push_back(&joints[i]);
    for (std::size_t i = 0; i < countOf(share, limbs.size()); ++i) {
        const Limb& limb = limbs[i];
        JointGroup group{joints[limb.front()].name, &joints[limb.front()], {}};
        for (std::size_t j = 0; j < countOf(share, limb.size()); ++j)
            group.joints.push_back(&joints[limb[j]]);
        data.limbs.push_back(std::move(group));
    }
    return data;
}

}  // namespace Tolvane::Tools
