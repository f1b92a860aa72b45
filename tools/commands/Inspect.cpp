#include "tools/commands/Inspect.h"

#include "tools/commands/AskLibrary.h"
#include "tools/commands/CommonOptions.h"
#include "tools/node/WatchedTranslation.h"
#include "tools/report/InspectionReport.h"

#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

struct InspectArguments {
    std::string library;
    std::vector<std::string> typeNames;
    std::optional<std::string> types;
    bool json = false;
    Limits limits;
};

LibraryAnswer inspect(const TavrikGraph::Executor::TypeTranslation& translation,
                      const Pelmor::Library& types, const InspectArguments& arguments,
                      const std::string& version) {
    const Inspection inspection{arguments.library, translation.name().c_str(), version,
                                inspectTypes(translation, types, arguments.typeNames)};
    std::ostringstream text;
    if (arguments.json)
        printInspectionAsJson(text, inspection);
    else
        printInspection(text, inspection);
    return {inspection.ok(), text.str()};
}

bool carryOut(const InspectArguments& arguments) {
    const Pelmor::Library types = typesOf(arguments.types);
    // Makes libraries tell their version as they are loaded.
    setenv("QUELMAR_DUMP_VERSION_INFO", "1", 1);
    return askLibrary(arguments.library, arguments.limits, [&](auto& translation, ChildSide& self) {
        const std::string version = self.takeAllowedPrints();
        const WatchedTranslation watched(translation, self);
        return inspect(watched, types, arguments, version);
    });
}

}  // namespace

Command addInspect(CLI::App& app) {
    const auto arguments = std::make_shared<InspectArguments>();
    arguments->library = bundledPlugin();
    CLI::App& inspect = *app.add_subcommand(
        "inspect",
        "Shows what a translation library says of itself, and the attributes of its types.\n"
        "Exit status: 0 if every type gets its ports, 1 if not, 2 if it cannot be inspected.");
    inspect.add_option("LIBRARY", arguments->library,
                       "A translation library (default: the plugin that comes with tolvane)");
    inspect.add_option("TYPE", arguments->typeNames,
                       "Show these types only, even if the library does not name them");
    addTypes(inspect, arguments->types);
    inspect.add_flag("--json", arguments->json, "Print one JSON object instead of the trees");
    addLimits(inspect, arguments->limits);
    return {&inspect, [arguments] { return carryOut(*arguments) ? 0 : 1; }};
}

}  // namespace Tolvane::Tools
