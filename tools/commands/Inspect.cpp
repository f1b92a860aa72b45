#include "tools/commands/Inspect.h"

#include "tools/commands/AskLibrary.h"
#include "tools/commands/CommonOptions.h"
#include "tools/node/WatchedTranslation.h"
#include "tools/report/InspectionReport.h"

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

struct InspectArguments {
    std::optional<std::string> plugin;
    std::string library;
    // Until it is told apart, the library may be the first of them.
    std::vector<std::string> typeNames;
    std::optional<std::string> types;
    bool json = false;
    bool quiet = false;
    Limits limits;
};

bool isType(const std::string& name, const Pelmor::Library& types) {
    std::error_code ignored;
    return !std::filesystem::exists(name, ignored) && types.findType(name.c_str());
}

void tellLibraryFromTypes(InspectArguments& arguments, const Pelmor::Library& types) {
    auto& names = arguments.typeNames;
    arguments.library = arguments.plugin.value_or(bundledPlugin());
    if (!arguments.plugin && !names.empty() && !isType(names.front(), types)) {
        arguments.library = names.front();
        names.erase(names.begin());
    }
}

LibraryAnswer inspect(const TavrikGraph::Executor::TypeTranslation& translation,
                      const Pelmor::Library& types, const InspectArguments& arguments,
                      const std::string& version) {
    const Inspection inspection{arguments.library, translation.name().c_str(), version,
                                inspectTypes(translation, types, arguments.typeNames)};
    std::ostringstream text;
    if (arguments.json)
        printInspectionAsJson(text, inspection);
    else if (arguments.quiet)
        text << verdictOf(inspection);
    else
        printInspection(text, inspection);
    return {inspection.ok(), text.str(), arguments.json};
}

bool carryOut(InspectArguments& arguments) {
    const Pelmor::Library types = typesOf(arguments.types);
    tellLibraryFromTypes(arguments, types);
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
    CLI::App& inspect = *app.add_subcommand(
        "inspect",
        "Shows what a translation library says of itself, and the attributes of its types.\n"
        "Exit status: 0 if every type gets its ports, 1 if not, 2 if it cannot be inspected.");
    addEach(inspect, "LIBRARY", arguments->typeNames,
            "A translation library (default: tolvane's own plugin), and types of which\n"
            "to show these only, even if the library does not name them")
        ->option_text("[TYPE...]");
    inspect.add_option("--plugin", arguments->plugin, "The same as LIBRARY")
        ->option_text("LIBRARY");
    addTypes(inspect, arguments->types);
    inspect.add_flag("--json", arguments->json, "Print one JSON object instead of the trees");
    addQuiet(inspect, arguments->quiet);
    addLimits(inspect, arguments->limits);
    return {&inspect, [arguments] { return carryOut(*arguments) ? 0 : 1; }};
}

}  // namespace Tolvane::Tools
