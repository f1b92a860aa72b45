// Prints a run: for a person, first the verdict, then what was loaded, a table, what was found
// wrong, and the verdict again, in lines of `kLineColumns`; for a program, one JSON object.
#pragma once

#include "tools/node/RunFrames.h"
#include "tools/support/Error.h"

#include <TavrikGraph/Executor/TypeTranslation.h>

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct TextOptions {
    // Whole names and paths, and those of all types and ports.
    bool verbose = false;
    bool inColour = false;
};

struct PluginSummary {
    std::string path;
    // The name of the translation.
    std::string name;
    // The types that it can carry from the host.
    std::vector<std::string> typeNames;
};

struct RigSummary {
    std::string file;
    std::size_t joints;
    std::size_t limbs;
    std::size_t frames;
    double framesPerSecond;
    // As a Rig has them.
    bool hasSkeleton;
    std::string animation;
    unsigned upAxis;
    std::optional<double> metresPerUnit;
};

PluginSummary summarise(const std::string& path,
                        const TavrikGraph::Executor::TypeTranslation& translation);
RigSummary summarise(const Rig& rig);

void printReport(std::ostream& out, const PluginSummary& plugin, const RigSummary& rig,
                 const RunResult& result, const TextOptions& options);
// What a report begins and ends with: one line, such as "PASSED: 60 evaluations, 309,960 values:
// all came back as they went in."
std::string verdictOf(const RunResult& result);

void printVerdict(std::ostream& out, const RunResult& result, const TextOptions& options);

void printJson(std::ostream& out, const PluginSummary& plugin, const RigSummary& rig,
               const RunResult& result);

// For a table of many rigs: its head, the row of a rig, without a line break, that of one that has
// no findings, and what they add up to. Unless it is to be whole, a long path loses its beginning.
std::string headOfRows();
std::string rowOf(const RigSummary& rig, const RunResult& result, bool wholePath = false);
std::string rowOf(const std::string& file, const Error& error, bool wholePath = false);
std::string sumOf(std::size_t equal, std::size_t failed, std::size_t notRun);
// Says what the mark means that the row of a rig without a skeleton has.
std::string noteOnSkeletons();

// The object of one of many rigs, in one line that begins with the name of its file.
std::string jsonLine(const std::string& file, const std::string& object);

// The object of a report, which says now that `error` kept all from being well.
std::string withError(const std::string& object, const Error& error);

// Where nothing can be reported, one object that says why.
void printJson(std::ostream& out, const Error& error);

}  // namespace Tolvane::Tools
