#include "tools/report/Report.h"
#include "tools/report/Table.h"
#include "tools/support/Columns.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <map>
#include <ostream>
#include <set>
#include <sstream>

namespace Tolvane::Tools {
namespace {

constexpr std::size_t kMostLines = 10;

std::string counted(std::size_t count, const std::string& one, const std::string& many) {
    return grouped(count) + " " + (count == 1 ? one : many);
}

std::string joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
    return text;
}

std::string rate(double framesPerSecond) {
    std::ostringstream text;
    text << framesPerSecond;
    return text.str();
}

std::string inMicroseconds(const MedianTime& time) {
    std::ostringstream text;
    text.precision(1);
    text << std::fixed << static_cast<double>(time.median().count()) / 1e3 << " µs";
    return text.str();
}

void printTable(std::ostream& out, const RunResult& result) {
    if (result.types.empty()) return;
    Table table({"Graph type", "Attributes", "Leaves", "From host", "To host", "Mismatches"});
    for (const TypeResult& type : result.types)
        table.addRow({type.typeName, grouped(type.attributeCount),
                      grouped(type.comparison.leavesCompared), inMicroseconds(type.fromHost),
                      inMicroseconds(type.toHost), grouped(type.comparison.mismatches)});
    table.print(out);
    out << "\n";
}

void printUncarried(std::ostream& out, const RunResult& result) {
    for (const std::string& name : result.notTried)
        out << "Not tried, for the graph does not know it (see --types): " << oneLine(name) << "\n";
    for (const std::string& name : result.notCarried)
        out << "Described, but not carried by the library: " << name << "\n";
}

// Where a type got no ports, arrays of it got none for the same reason, which is said once.
void printFirstMismatches(std::ostream& out, const RunResult& result) {
    std::set<std::string> said;
    for (const TypeResult& type : result.types) {
        const auto& mismatch = type.comparison.firstMismatch;
        if (!mismatch) continue;
        const std::string afterPort = mismatch->path + ": " + mismatch->what;
        if (said.count(type.typeName + afterPort) != 0) continue;
        out << "First mismatch of " << type.typeName << ": " << inOneLine(*mismatch) << "\n";
        if (type.attributeCount == 0) said.insert("array<" + type.typeName + ">" + afterPort);
    }
}

// Each message once, with its count: the same one often comes in every frame.
void printHostMessages(std::ostream& out, const std::vector<std::string>& messages) {
    std::map<std::string, std::size_t> counts;
    std::size_t lines = 0;
    for (const std::string& message : messages) ++counts[message];
    for (const auto& [message, count] : counts) {
        if (lines++ == kMostLines) {
            out << "... and " << counted(counts.size() - kMostLines, "other message", "others")
                << "\n";
            break;
        }
        out << "The host displayed, " << counted(count, "time", "times") << ": " << oneLine(message)
            << "\n";
    }
}

void printVerdict(std::ostream& out, const RunResult& result) {
    if (result.types.empty()) {
        out << "FAILED: no type was tried. The library names "
            << (result.notTried.empty() ? "none" : "only types that the graph does not know")
            << ".\n";
        return;
    }
    out << counted(result.evaluated, "evaluation", "evaluations") << ", "
        << counted(result.leavesCompared(), "value", "values") << " compared: ";
    if (result.ok())
        out << "all came back as they went in";
    else
        out << "FAILED, with " << counted(result.mismatches(), "mismatch", "mismatches") << " and "
            << counted(result.hostMessages.size(), "message", "messages") << " of the host"
            << (result.misdeed ? ", and the library prints" : "");
    if (!result.notTried.empty())
        out << ", " << counted(result.notTried.size(), "type", "types") << " not tried";
    out << ".\n";
}

}  // namespace

void printIntroduction(std::ostream& out, const PluginSummary& plugin, const RigSummary& rig,
                       const std::vector<std::string>& portNames) {
    out << "Library  " << oneLine(plugin.path) << "\n"
        << "         \"" << oneLine(plugin.name) << "\", for "
        << counted(plugin.typeNames.size(), "type", "types") << ":\n";
    for (const std::string& name : plugin.typeNames) out << "           " << oneLine(name) << "\n";
    out << "Rig      " << oneLine(rig.file) << "\n"
        << "         " << counted(rig.joints, "joint", "joints") << " in "
        << counted(rig.limbs, "limb", "limbs") << ", " << counted(rig.frames, "frame", "frames")
        << " at " << rate(rig.framesPerSecond) << " per second\n"
        << "Ports    " << portNames.size() << " added:\n"
        << wrapped(joined(portNames), 11) << "\n\n"
        << std::flush;
}

void printFindings(std::ostream& out, const RunResult& result) {
    printTable(out, result);
    printUncarried(out, result);
    printFirstMismatches(out, result);
    printHostMessages(out, result.hostMessages);
    printVerdict(out, result);
}

}  // namespace Tolvane::Tools
