// Prints a run: for a person, first what was loaded and then a table and a verdict; for a program,
// one JSON object.
#pragma once

#include "tools/node/RunFrames.h"
#include "tools/support/Error.h"

#include <TavrikGraph/Executor/TypeTranslation.h>

#include <iosfwd>
#include <string>
#include <vector>

namespace Tolvane::Tools {

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
};

PluginSummary summarise(const std::string& path,
                        const TavrikGraph::Executor::TypeTranslation& translation);
RigSummary summarise(const Rig& rig);

void printIntroduction(std::ostream& out, const PluginSummary& plugin, const RigSummary& rig,
                       const std::vector<std::string>& portNames);
void printFindings(std::ostream& out, const RunResult& result);

void printJson(std::ostream& out, const PluginSummary& plugin, const RigSummary& rig,
               const RunResult& result);
// Where nothing can be reported, one object that says why.
void printJson(std::ostream& out, const Error& error);

}  // namespace Tolvane::Tools
