#include "tools/rig/Limbs.h"

namespace Tolvane::Tools {

std::vector<Limb> splitIntoLimbs(const Rig& rig) {
    std::vector<std::size_t> childCounts(rig.joints.size());
    for (const Joint& joint : rig.joints)
        if (joint.parent) ++childCounts[*joint.parent];

    std::vector<Limb> limbs;
    std::vector<std::size_t> limbOf(rig.joints.size());
    for (std::size_t joint = 0; joint < rig.joints.size(); ++joint) {
        const auto parent = rig.joints[joint].parent;
        const bool goesOn = parent && childCounts[*parent] == 1;
        if (!goesOn) limbs.emplace_back();
        limbOf[joint] = goesOn ? limbOf[*parent] : limbs.size() - 1;
        limbs[limbOf[joint]].push_back(joint);
    }
    return limbs;
}

}  // namespace Tolvane::Tools
