// What goes into a node's inputs for one evaluation: into a port of a record the whole rig, into a
// port of an array of records one limb per element.
#pragma once

#include "tools/node/Churn.h"
#include "tools/node/RigFrame.h"
#include "tools/rig/Limbs.h"

#include <OpenVornik/VString.h>

#include <vector>

namespace Tolvane::Tools {

using JointList = std::vector<const PosedJoint*>;

// Joints that go into one record.
struct JointGroup {
    VString name;
    // The joint that a single transform is made of. Never null, even if `joints` is empty.
    const PosedJoint* first;
    JointList joints;
};

struct FrameData {
    JointGroup rig;
    std::vector<JointGroup> limbs;
};

// `name` is the name of the rig; a limb is named after its first joint. There is at least one
// joint, and the result points into `joints`.
FrameData frameData(const VString& name, const std::vector<PosedJoint>& joints,
                    const std::vector<Limb>& limbs, Share share);

}  // namespace Tolvane::Tools
