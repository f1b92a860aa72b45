// The picture of a run: the skeleton in several frames side by side, from the front and from the
// side, as SVG.
#pragma once

#include "tools/Rig.h"

#include <OpenVornik/VMatrix.h>

#include <cstddef>
#include <string>
#include <vector>

namespace Tolvane {

// The skeleton in one frame: the world matrices of the rig's first joints, as many as there were.
struct Snapshot {
    std::size_t frame;
    std::vector<VMatrix> worlds;
};

// How many snapshots make a good picture.
constexpr std::size_t kMostSnapshots = 8;

// A whole SVG document. The rig says which joint belongs to which; where they are the snapshots
// say.
std::string drawPicture(const Rig& rig, const std::vector<Snapshot>& snapshots);

}  // namespace Tolvane
