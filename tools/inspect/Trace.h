// Every host call of one evaluation, in order.
#pragma once

#include "tools/inspect/HostMirror.h"
#include "tools/node/DataShape.h"
#include "tools/process/ChildSide.h"

#include <Pelmor/Type.h>
#include <TavrikGraph/Executor/TypeTranslation.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct TracedCall {
    ObservedCall call;
    // How deep below the port it is: in members and elements.
    std::size_t depth;
    // What it gave, and how long it took. Nothing where that cannot be known: for a call that
    // `HostMirror` cannot repeat, and one that was made to fail.
    std::optional<HostMirror::Answer> answer = {};
    bool wasMadeToFail = false;
    // Of a place that it gave to be written to, what that holds after a translation that went well.
    std::optional<std::string> written = {};
};

// The way of one value into or out of the graph.
struct TracedTranslation {
    std::string typeName;
    bool isInput;
    // What the translation returned and, on the way in, whether there was a value.
    bool wasTranslated = false;
    bool hasValue = false;
    // What the host displayed.
    std::vector<std::string> messages = {};
    std::vector<TracedCall> calls = {};
    // All of it, as it runs unwatched. Nothing where a call of the trace is made to fail.
    std::optional<std::chrono::nanoseconds> duration = {};
    // What the library does between the calls: how much less the calls take in a row without it.
    // Nothing where that is not known, or is too little to be measured.
    std::optional<std::chrono::nanoseconds> durationOutside = {};

    // They make up `duration` together with `durationOutside`, and are no more than it without.
    std::chrono::nanoseconds durationOfCalls() const;
};

struct TraceOptions {
    bool in = true;
    bool out = true;
    // The call that is made to fail, counted from 1 over the whole trace.
    std::optional<std::size_t> fail = {};
    // That of the rig which the data are of.
    std::optional<std::size_t> frame = {};
};

// Puts data into the attribute of an input port.
using FillPort = std::function<void(const DataPlace& port)>;

// Whose calls are traced: a library in the process that it runs in, which notes what the library is
// at, but not within the times that are taken.
struct TracedLibrary {
    std::string path;
    TavrikGraph::Executor::TypeTranslation& translation;
    ChildSide& process;
};

// First the values of all types are read, then all are written. Times are the median of several
// evaluations, each on new nodes. Throws Error if the host's calls cannot be watched, if a type
// gets no ports, and if there is no call that could fail.
std::vector<TracedTranslation> traceEvaluation(const TracedLibrary& library,
                                               const std::vector<Pelmor::Type>& types,
                                               const FillPort& fill, const TraceOptions& options);

// All of them together.
std::size_t callsOf(const std::vector<TracedTranslation>& trace);

}  // namespace Tolvane::Tools
