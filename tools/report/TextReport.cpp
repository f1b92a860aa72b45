#include "tools/report/Colours.h"
#include "tools/report/MismatchText.h"
#include "tools/report/Report.h"
#include "tools/report/Table.h"
#include "tools/report/Words.h"
#include "tools/support/Columns.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <ostream>
#include <sstream>

namespace Tolvane::Tools {
namespace {

constexpr std::size_t kMostMessages = 10;
// The column at which facts stand, behind what they are of.
constexpr std::size_t kFacts = 9;

void printFurtherFact(std::ostream& out, const std::string& fact) {
    out << wrapped(fact, kFacts) << "\n";
}

// A name within a sentence.
std::string named(const std::string& name, const TextOptions& options) {
    constexpr std::size_t kColumns = 40;
    const std::string line = oneLine(name);
    return '"' + (options.verbose ? line : shortened(line, kColumns)) + '"';
}

void printRig(std::ostream& out, const RigSummary& rig, const TextOptions& options) {
    printFact(out, "Rig", rig.file, options.verbose);
    std::string facts = counted(rig.joints, "joint", "joints") + " in " +
                        counted(rig.limbs, "limb", "limbs") + ", " +
                        counted(rig.frames, "frame", "frames") + " at " +
                        shortText(rig.framesPerSecond) + " per second";
    if (!rig.animation.empty()) facts += ", animation " + named(rig.animation, options);
    printFurtherFact(out, facts);
    if (!rig.hasSkeleton) printFurtherFact(out, "no skeleton: every node taken for a joint");
    if (!options.verbose) return;
    const std::string unit =
        rig.metresPerUnit ? shortText(*rig.metresPerUnit) + " metres per unit" : "units not stated";
    printFurtherFact(out, std::string(1, "xyz"[rig.upAxis % 3]) + " is up, " + unit);
}

void printTypesAndPorts(std::ostream& out, const RunResult& result) {
    printFact(out, "Types", counted(result.types.size(), "type", "types") + " tried:");
    for (const TypeResult& type : result.types)
        out << wrapped(type.typeName + " (" +
                           counted(type.attributeCount, "attribute", "attributes") + ")",
                       kFacts + 2)
            << "\n";
    printFact(out, "Ports", counted(result.portNames.size(), "port", "ports") + " added:");
    out << wrapped(joined(result.portNames), kFacts + 2) << "\n";
}

void printTable(std::ostream& out, const RunResult& result, const TextOptions& options) {
    if (result.types.empty()) return;
    Table table({"Graph type", "Values", "From host", "To host", "Wrong"});
    for (const TypeResult& type : result.types)
        table.addRow({type.typeName, grouped(type.comparison.leavesCompared),
                      inWords(type.fromHost.median()), inWords(type.toHost.median()),
                      grouped(type.comparison.mismatches)},
                     type.comparison.mismatches > 0 ? Colour::Bad : Colour::None);
    table.print(out, options.inColour);
    out << "Times are processor time: the median of all evaluations.\n\n";
}

void printUncarried(std::ostream& out, const RunResult& result) {
    std::vector<std::string> lines;
    for (const NotTried& type : result.notTried)
        lines.push_back("Not tried, for " + type.reason + ": " + oneLine(type.typeName));
    for (const std::string& name : result.notCarried)
        lines.push_back("Described, but not carried by the library: " + name);
    for (const std::string& line : lines) out << wrapped(line, 0) << "\n";
    if (!lines.empty()) out << "\n";
}

void printHostMessages(std::ostream& out, const HostMessages& messages,
                       const TextOptions& options) {
    std::size_t lines = 0, left = messages.times();
    for (const auto& [text, times] : messages.kept()) {
        if (lines++ == kMostMessages && !options.verbose) break;
        out << wrapped(
                   "The host displayed, " + counted(times, "time", "times") + ": " + oneLine(text),
                   0)
            << "\n";
        left -= times;
    }
    if (left > 0) out << "... and others, " << counted(left, "time", "times") << "\n";
    if (messages.times() > 0) out << "\n";
}

std::string findingsOf(const RunResult& result) {
    std::vector<std::string> parts;
    const auto add = [&parts](std::size_t count, const char* one, const char* many) {
        if (count > 0) parts.push_back(counted(count, one, many));
    };
    const auto unexcused = std::count_if(result.notTried.begin(), result.notTried.end(),
                                         [](const NotTried& type) { return !type.isExcused; });
    add(result.mismatches(), "mismatch", "mismatches");
    add(result.hostMessages.times(), "message of the host", "messages of the host");
    add(result.notCarried.size(), "described type not carried", "described types not carried");
    add(static_cast<std::size_t>(unexcused), "type not tried", "types not tried");
    if (result.misdeed) parts.emplace_back("the library prints");
    return joined(parts);
}

}  // namespace

void printReport(std::ostream& out, const PluginSummary& plugin, const RigSummary& rig,
                 const RunResult& result, const TextOptions& options) {
    printVerdict(out, result, options);
    out << "\n";
    printFact(out, "Library", plugin.path, options.verbose);
    printFurtherFact(out, named(plugin.name, options) + ", " +
                              counted(plugin.typeNames.size(), "type", "types"));
    printRig(out, rig, options);
    if (options.verbose) printTypesAndPorts(out, result);
    out << "\n";
    printTable(out, result, options);
    printUncarried(out, result);
    printMismatches(out, result);
    printHostMessages(out, result.hostMessages, options);
    printVerdict(out, result, options);
}

void printVerdict(std::ostream& out, const RunResult& result, const TextOptions& options) {
    const Colour colour = result.ok() ? Colour::Good : Colour::Bad;
    out << coloured(colour, wrapped(verdictOf(result), 0), options.inColour) << "\n";
}

std::string verdictOf(const RunResult& result) {
    if (result.types.empty())
        return std::string("FAILED: no type was tried. ") +
               (result.notTried.empty() ? "The library names none."
                                        : "The graph knows none that the library names.");
    const std::string done = counted(result.evaluated, "evaluation", "evaluations") + ", " +
                             counted(result.leavesCompared(), "value", "values") + ": ";
    if (!result.ok()) return "FAILED: " + done + findingsOf(result) + ".";
    std::string verdict = "PASSED: " + done + "all came back as they went in.";
    if (!result.notTried.empty())
        verdict += " " + counted(result.notTried.size(), "type", "types") + " not tried.";
    return verdict;
}

}  // namespace Tolvane::Tools
