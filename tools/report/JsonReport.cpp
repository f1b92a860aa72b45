#include "tools/report/Report.h"
#include "tools/support/OneLine.h"

#include <ostream>

#include <nlohmann/json.hpp>

namespace Tolvane::Tools {
namespace {

using Json = nlohmann::ordered_json;

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

// JSON is UTF-8, which file names and messages need not be.
std::string textOf(const Json& json, int indent = 2) {
    return json.dump(indent, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

void printJson(std::ostream& out, const PluginSummary& plugin, const RigSummary& rig,
               const RunResult& result) {
    Json types = Json::array();
    for (const TypeResult& type : result.types) types.push_back(jsonOf(type));
    Json report{{"plugin",
                 {{"path", plugin.path}, {"name", plugin.name}, {"types", Json(plugin.typeNames)}}},
                {"rig",
                 {{"file", rig.file},
                  {"joints", rig.joints},
                  {"limbs", rig.limbs},
                  {"frames", rig.frames},
                  {"fps", rig.framesPerSecond}}},
                {"types", types},
                {"notTried", Json(result.notTried)},
                {"notCarried", Json(result.notCarried)},
                {"hostMessages", Json(result.hostMessages)},
                {"evaluated", result.evaluated},
                {"mismatches", result.mismatches()},
                {"ok", result.ok()}};
    if (result.misdeed) report["error"] = jsonOf(*result.misdeed);
    out << textOf(report);
}

void printJson(std::ostream& out, const Error& error) { out << textOf({{"error", jsonOf(error)}}); }

}  // namespace Tolvane::Tools
