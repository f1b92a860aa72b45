// When the frames of an animation are: its rate, which few kinds of file state, and how many there
// are.
#pragma once

#include "tools/rig/SceneChannels.h"

#include <optional>
#include <string>
#include <vector>

#include <assimp/anim.h>

namespace Tolvane::Tools {

struct Timing {
    double framesPerSecond = 30;
    double ticksPerFrame = 1;
    // From time zero to the last key.
    double seconds = 0;
    // At least one. The first frame is at time zero, the last at or just before the last key.
    double frameCount = 1;
};

// `channels` are those of the animation that move anything, `kind` is that of their file. `rate` is
// the number of frames per second that is asked for; without one it is the animation's own, or 30
// where that is not known. Throws Error, which names `path`, if the animation has no valid number
// of ticks per second.
Timing timingOf(const aiAnimation& animation, const Channels& channels, FileKind kind,
                std::optional<double> rate, const std::string& path);

// Whether it has a valid number of ticks per second, or states none.
bool hasTimeUnit(const aiAnimation& animation);

// The usual rate that a rate read from a file means. Files give it, or the length of a frame, in
// few digits, or in single precision.
double usualRate(double rate);

// The rate on whose frames keys at these times lie, in seconds and ascending; nothing if they do
// not tell it.
std::optional<double> rateOfKeys(const std::vector<double>& times);

}  // namespace Tolvane::Tools
