#include "tools/report/Report.h"

#include "tools/rig/Limbs.h"

#include <Pelmor/Array.h>

namespace Tolvane::Tools {

PluginSummary summarise(const std::string& path,
                        const TavrikGraph::Executor::TypeTranslation& translation) {
    Pelmor::Array<Pelmor::String> names;
    translation.getSupportedTypeNames(names);
    PluginSummary summary{path, translation.name().c_str(), {}};
    for (const Pelmor::String& name : names) summary.typeNames.emplace_back(name.c_str());
    return summary;
}

RigSummary summarise(const Rig& rig) {
    return {rig.file,       rig.joints.size(),   splitIntoLimbs(rig).size(),
            rig.frameCount, rig.framesPerSecond, rig.hasSkeleton,
            rig.animation,  rig.upAxis,          rig.metresPerUnit};
}

}  // namespace Tolvane::Tools
