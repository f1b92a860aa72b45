#include "tools/rig/FrameRange.h"

#include "tools/support/Error.h"

#include <charconv>

namespace Tolvane::Tools {

FrameRange parseFrameRange(const std::string& text) {
    FrameRange range{};
    const char* const end = text.data() + text.size();
    const auto first = std::from_chars(text.data(), end, range.first);
    const bool colonFollows = first.ec == std::errc() && first.ptr != end && *first.ptr == ':';
    const auto last =
        colonFollows ? std::from_chars(first.ptr + 1, end, range.last) : std::from_chars_result{};
    if (!colonFollows || last.ec != std::errc() || last.ptr != end)
        throw Error("--frames " + text + ": is not of the form A:B, with whole numbers from 0 on");
    if (range.last < range.first) throw Error("--frames " + text + ": ends before it begins");
    return range;
}

FrameRange framesOf(const Rig& rig, const std::optional<FrameRange>& asked) {
    const FrameRange all{0, rig.frameCount - 1};
    if (!asked) return all;
    if (asked->last <= all.last) return *asked;
    throw Error(rig.file + ": has frames 0:" + std::to_string(all.last) + " only, not " +
                std::to_string(asked->first) + ":" + std::to_string(asked->last));
}

}  // namespace Tolvane::Tools
