#include "tools/inspect/RigData.h"

#include "tools/node/FillInputs.h"
#include "tools/node/FillPlan.h"
#include "tools/node/FrameData.h"
#include "tools/node/RigFrame.h"
#include "tools/rig/Limbs.h"

#include <filesystem>

namespace Tolvane::Tools {

void fillFromRig(const DataPlace& port, const Rig& rig, std::size_t frame) {
    const std::string name = std::filesystem::path(rig.file).stem().string();
    RigFrame pose(rig);
    pose.pose(frame);
    fillInput(planFor(port.shape), port,
              frameData(name.c_str(), pose.joints(), splitIntoLimbs(rig), Share::All), frame);
}

}  // namespace Tolvane::Tools
