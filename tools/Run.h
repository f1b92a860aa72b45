// A whole run: each frame of a rig goes through the plugin into the graph and back, and what comes
// back is compared with what went in.
#pragma once

#include "tools/FrameRange.h"
#include "tools/Picture.h"
#include "tools/Rig.h"
#include "tools/RoundTrip.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Tolvane {

struct RunOptions {
    // All frames without.
    std::optional<FrameRange> frames = {};
    // How often the node is evaluated, the frames being gone through again and again. Without, once
    // for each frame; under churn at least four times.
    std::optional<std::size_t> evaluations = {};
    bool churn = false;
    // Whether snapshots for a picture are taken.
    bool draw = false;
};

struct RunResult {
    std::vector<TypeResult> types;
    // What the host displayed, in order.
    std::vector<std::string> hostMessages;
    std::size_t evaluated = 0;
    std::vector<Snapshot> snapshots;

    std::size_t leavesCompared() const;
    std::size_t mismatches() const;
    bool ok() const { return mismatches() == 0 && hostMessages.empty(); }
};

// Told before a run begins what it will be, and after each evaluation how many are done.
struct RunListener {
    std::function<void(const RoundTrip& roundTrip)> begins = {};
    std::function<void(std::size_t done, std::size_t total)> evaluated = {};
};

// Throws Error where the rig lacks some of the frames.
FrameRange framesOf(const Rig& rig, const std::optional<FrameRange>& asked);

RunResult run(const Rig& rig, TavrikGraph::Executor::TypeTranslation& translation,
              const RunOptions& options, const RunListener& listener = {});

}  // namespace Tolvane
