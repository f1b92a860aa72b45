// The frames of a rig that are asked for: numbers from 0 on, both ends included.
#pragma once

#include "tools/rig/Rig.h"

#include <cstddef>
#include <optional>
#include <string>

namespace Tolvane::Tools {

struct FrameRange {
    std::size_t first;
    std::size_t last;

    std::size_t size() const noexcept { return last - first + 1; }
};

// Reads "A:B", the value of the option --frames. Throws Error where `text` has another form or ends
// before it begins.
FrameRange parseFrameRange(const std::string& text);

// The frames that are asked for; all frames of the rig if none are. Throws Error where the rig
// lacks some of them.
FrameRange framesOf(const Rig& rig, const std::optional<FrameRange>& asked);

}  // namespace Tolvane::Tools
