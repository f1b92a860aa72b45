// What goes into a node's inputs for one evaluation: the whole rig for a port of a record, one limb
// for each element of a port of an array of records.
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
    // Stands for the group as a single transform, and is there even if `joints` is empty.
    const PosedJoint* first;
    JointList joints;
};

struct FrameData {
    JointGroup rig;
    std::vector<JointGroup> limbs;
};

// `name` is the rig's. A limb's is that of its first joint. The result is good while `joints` is.
FrameData frameData(const VString& name, const std::vector<PosedJoint>& joints,
                    const std::vector<Limb>& limbs, Share share);

}  // namespace Tolvane::Tools
