// Prints the host calls of an evaluation: for a person a line for each and what they cost, for a
// program one JSON object, for viewers of timelines an object in the trace event format.
#pragma once

#include "tools/inspect/Trace.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct TraceReport {
    std::string library;
    // What was evaluated: a rig's file and frame, or generated data.
    std::string data;
    std::vector<TracedTranslation> translations;

    // Whether each value was translated.
    bool ok() const { return failed() == 0; }
    // How many were not.
    std::size_t failed() const;
};

// Unless `verbose`, values and names are cut where a line is too short for them.
void printTrace(std::ostream& out, const TraceReport& report, bool verbose = false);
void printTraceAsJson(std::ostream& out, const TraceReport& report);
// A line that says what failed; empty if nothing did.
std::string verdictOf(const TraceReport& report);
// Calls lie as far apart as they do on average, for it is known how long each takes, but of what is
// between them only the sum.
void printTraceEvents(std::ostream& out, const TraceReport& report);

}  // namespace Tolvane::Tools
