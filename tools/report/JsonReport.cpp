#include "tools/node/LeafText.h"
#include "tools/report/Json.h"
#include "tools/report/Report.h"
#include "tools/support/OneLine.h"

#include <ostream>

namespace Tolvane::Tools {
namespace {

Json jsonOf(const Error& error) {
    return {{"stage", wordFor(error.stage())},
            {"what", oneLine(error.what())},
            {"file", error.file().empty() ? Json() : Json(error.file())}};
}

Json jsonOf(const TypeResult& type) {
    const auto& first = type.comparison.firstMismatch;
    return {
        {"name", type.typeName},
        {"attributes", type.attributeCount},
        {"leavesCompared", type.comparison.leavesCompared},
        {"mismatches", type.comparison.mismatches},
        {"firstMismatch", first ? inOneLine(*first) : ""},
        {"medianProcessorNs",
         {{"fromHost", type.fromHost.median().count()}, {"toHost", type.toHost.median().count()}}}};
}

Json jsonOf(const LeafValue& value) {
    if (const auto* number = std::get_if<double>(&value)) return jsonNumber(*number);
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return *whole;
    if (const auto* truth = std::get_if<bool>(&value)) return *truth;
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* matrix = std::get_if<VMatrix>(&value)) return jsonMatrix(*matrix);
    return nullptr;
}

Json differenceOf(const Mismatch& mismatch) {
    const auto* expected = std::get_if<double>(&mismatch.expectedValue);
    const auto* actual = std::get_if<double>(&mismatch.actualValue);
    if (expected && actual) return jsonNumber(*actual - *expected);
    const auto* before = std::get_if<std::int64_t>(&mismatch.expectedValue);
    const auto* after = std::get_if<std::int64_t>(&mismatch.actualValue);
    if (before && after) return *after - *before;
    return mismatch.difference.empty() ? Json() : Json(mismatch.difference);
}

Json jsonOf(const FoundMismatch& found) {
    const Mismatch& mismatch = found.mismatch;
    Json element;
    if (mismatch.element)
        element = {{"row", mismatch.element->row}, {"column", mismatch.element->column}};
    return {{"type", found.typeName},
            {"port", mismatch.port},
            {"path", mismatch.path},
            {"indices", Json(mismatch.indices)},
            {"frame", found.frame ? Json(*found.frame) : Json()},
            {"what", mismatch.what},
            {"element", element},
            {"expected", jsonOf(mismatch.expectedValue)},
            {"actual", jsonOf(mismatch.actualValue)},
            {"difference", differenceOf(mismatch)}};
}

Json jsonOf(const RigSummary& rig) {
    return {{"file", rig.file},
            {"joints", rig.joints},
            {"limbs", rig.limbs},
            {"hasSkeleton", rig.hasSkeleton},
            {"animation", rig.animation.empty() ? Json() : Json(rig.animation)},
            {"frames", rig.frames},
            {"fps", rig.framesPerSecond},
            {"upAxis", std::string(1, "xyz"[rig.upAxis % 3])},
            {"metresPerUnit", rig.metresPerUnit ? Json(*rig.metresPerUnit) : Json()}};
}

}  // namespace

void printJson(std::ostream& out, const PluginSummary& plugin, const RigSummary& rig,
               const RunResult& result) {
    Json types = Json::array();
    for (const TypeResult& type : result.types) types.push_back(jsonOf(type));
    Json mismatches = Json::array(), notTried = Json::array(), messages = Json::array();
    for (const FoundMismatch& found : result.firstMismatches) mismatches.push_back(jsonOf(found));
    for (const NotTried& type : result.notTried)
        notTried.push_back({{"name", type.typeName}, {"reason", type.reason}});
    for (const auto& [text, times] : result.hostMessages.kept())
        messages.push_back({{"text", text}, {"times", times}});
    Json report{{"plugin",
                 {{"path", plugin.path}, {"name", plugin.name}, {"types", Json(plugin.typeNames)}}},
                {"rig", jsonOf(rig)},
                {"types", types},
                {"notTried", notTried},
                {"notCarried", Json(result.notCarried)},
                {"hostMessages", messages},
                {"otherHostMessages", result.hostMessages.timesOfOthers()},
                {"evaluated", result.evaluated},
                {"mismatches", result.mismatches()},
                {"firstMismatches", mismatches},
                {"ok", result.ok()}};
    if (result.misdeed) report["error"] = jsonOf(*result.misdeed);
    out << printed(report);
}

std::string jsonLine(const std::string& file, const std::string& object) {
    Json line{{"file", file}};
    line.update(Json::parse(object));
    return printed(line, -1);
}

std::string withError(const std::string& object, const Error& error) {
    Json report = Json::parse(object);
    if (report.contains("ok")) report["ok"] = false;
    report["error"] = jsonOf(error);
    return printed(report);
}

void printJson(std::ostream& out, const Error& error) {
    out << printed({{"error", jsonOf(error)}});
}

}  // namespace Tolvane::Tools
