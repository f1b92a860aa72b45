#include "tools/rig/Rig.h"

#include "tools/rig/MatrixMath.h"

namespace Tolvane::Tools {

void poseAtRest(Rig& rig) {
    for (Joint& joint : rig.joints) {
        const VMatrix& above = joint.parent ? rig.joints[*joint.parent].restWorld : joint.aboveRoot;
        joint.restWorld = multiply(joint.restLocal, above);
    }
}

}  // namespace Tolvane::Tools
