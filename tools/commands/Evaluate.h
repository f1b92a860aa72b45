// The part of `tolvane run` that deals with the translation library, in a process of its own: it
// loads the library, sends the rig through it, and makes the texts that the run is asked for, which
// are all that comes back.
#pragma once

#include "tools/commands/RunArguments.h"
#include "tools/node/RunFrames.h"
#include "tools/process/Child.h"
#include "tools/rig/Rig.h"

#include <optional>
#include <string>

namespace Tolvane::Tools {

struct Evaluation {
    // Whether all that was asked for was done and every value came back equal.
    bool ok = false;
    // What is printed on standard output.
    std::string report;
    // Nothing if none was asked for.
    std::optional<std::string> picture;
    std::optional<std::string> page;
    // What the library did that it should not, as one line.
    std::optional<std::string> misdeed;
    // What the library printed and somebody asked for.
    std::string printed;
    // The run in one line of a table.
    std::string row;
    bool hasSkeleton = true;
};

// Throws Error if the library cannot be loaded or brings its process down, with a line that names
// it and says what it was doing, and Interrupted. `watch` is told how far the run is.
Evaluation evaluate(const Rig& rig, const RunArguments& arguments, const RunOptions& options,
                    const Watch& watch);

}  // namespace Tolvane::Tools
