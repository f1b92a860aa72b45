// Sends frames of a rig through a translation, one evaluation of a node each, into the graph and
// back, and compares what comes back with what went in.
#pragma once

#include "tools/node/HostMessages.h"
#include "tools/node/Recording.h"
#include "tools/node/RoundTrip.h"
#include "tools/node/Snapshot.h"
#include "tools/rig/FrameRange.h"
#include "tools/rig/Rig.h"
#include "tools/support/Error.h"

#include <Pelmor/Library.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct RunOptions {
    // All frames if unset.
    std::optional<FrameRange> frames = {};
    // How often the node is evaluated; after the last frame it begins again with the first. If
    // unset, once for each frame, and under churn at least once for each share.
    std::optional<std::size_t> evaluations = {};
    bool churn = false;
    // Whether to take snapshots for a picture.
    bool draw = false;
    // Whether to record the run for a page.
    bool record = false;
    // The types that the graph knows.
    Pelmor::Library types = {};
    // Those of them that the translation is expected to carry, alone or in other types.
    std::vector<std::string> expectedTypes = {};
};

constexpr std::size_t kMostMismatchesKept = 10;

// A type that was not tried, and why.
struct NotTried {
    std::string typeName;
    std::string reason;
    // Whether that is for the user to know, and no fault.
    bool isExcused;
};

struct RunResult {
    std::vector<TypeResult> types;
    // The first of all mismatches, no more than kMostMismatchesKept, as they were found.
    std::vector<FoundMismatch> firstMismatches;
    // The first of each type that has any, as they were found.
    std::vector<FoundMismatch> firstOfTypes;
    std::vector<std::string> portNames;
    // The types that the translation names and that got no ports.
    std::vector<NotTried> notTried;
    // The expected types that the translation does not carry.
    std::vector<std::string> notCarried;
    HostMessages hostMessages;
    std::size_t evaluated = 0;
    std::vector<Snapshot> snapshots;
    // What the library did that it should not, beside its translations. `runFrames` does not see
    // that.
    std::optional<Error> misdeed = {};
    // If it was asked for.
    std::optional<Recording> recording;

    std::size_t leavesCompared() const;
    std::size_t mismatches() const;
    // A run that tried no type has shown nothing, and one that carries less than was expected has
    // not done what it was asked for.
    bool ok() const;
};

// Whoever wants to follow a run. Each may be empty.
struct RunListener {
    // Called once, before the first evaluation. What it throws ends the run.
    std::function<void(const RoundTrip& roundTrip)> begins = {};
    // Called after each evaluation with the number of those done.
    std::function<void(std::size_t done, std::size_t total)> evaluated = {};
    // Called before each evaluation with the frame that it is for.
    std::function<void(std::size_t frame)> evaluates = {};
    // Called for every mismatch, when it is found. A run with many of them is faster without.
    std::function<void(const FoundMismatch& mismatch)> mismatch = {};
};

// Throws Error where the rig lacks some of the frames.
RunResult runFrames(const Rig& rig, TavrikGraph::Executor::TypeTranslation& translation,
                    const RunOptions& options, const RunListener& listener = {});

}  // namespace Tolvane::Tools
