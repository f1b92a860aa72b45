// The picture of a run: the skeleton in several frames side by side, in two views, as SVG.
#pragma once

#include "tools/node/Snapshot.h"
#include "tools/rig/Rig.h"

#include <string>
#include <vector>

namespace Tolvane::Tools {

// A whole SVG document. The hierarchy comes from the rig, the positions from the snapshots.
std::string drawPicture(const Rig& rig, const std::vector<Snapshot>& snapshots);

}  // namespace Tolvane::Tools
