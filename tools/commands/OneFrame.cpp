#include "tools/commands/OneFrame.h"

#include "tools/process/Interruption.h"
#include "tools/rig/FrameRange.h"
#include "tools/rig/ReadRig.h"
#include "tools/support/Error.h"

namespace Tolvane::Tools {

Rig readRigWithFrame(const std::string& file, const LoadOptions& options, std::size_t frame,
                     const Limits& limits) {
    const InterruptionGuard guard;
    Rig rig = readRig(file, options, limits);
    during(Stage::Usage, "", [&] { framesOf(rig, FrameRange{frame, frame}); });
    return rig;
}

}  // namespace Tolvane::Tools
