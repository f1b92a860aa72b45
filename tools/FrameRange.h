// The frames of a rig that are asked for: numbers from 0 on, both ends included.
#pragma once

#include <cstddef>
#include <string>

namespace Tolvane {

struct FrameRange {
    std::size_t first;
    std::size_t last;

    std::size_t size() const noexcept { return last - first + 1; }
};

// Reads "A:B". Throws Error where `text` has another form or the range is reversed.
FrameRange parseFrameRange(const std::string& text);

}  // namespace Tolvane
