#include "tools/report/Report.h"

#include "tools/node/NamedTypes.h"
#include "tools/rig/Limbs.h"

namespace Tolvane::Tools {

PluginSummary summarise(const std::string& path,
                        const TavrikGraph::Executor::TypeTranslation& translation) {
    return {path, translation.name().c_str(), namesOf(translation)};
}

RigSummary summarise(const Rig& rig) {
    return {rig.file,       rig.joints.size(),   splitIntoLimbs(rig).size(),
            rig.frameCount, rig.framesPerSecond, rig.hasSkeleton,
            rig.animation,  rig.upAxis,          rig.metresPerUnit};
}

}  // namespace Tolvane::Tools
