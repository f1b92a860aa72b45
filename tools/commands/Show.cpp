#include "tools/commands/Show.h"

#include "tools/commands/AskLibrary.h"
#include "tools/commands/CommonOptions.h"
#include "tools/commands/OneFrame.h"
#include "tools/inspect/TypedNode.h"
#include "tools/node/WatchedTranslation.h"
#include "tools/report/ValueReport.h"

#include <OpenVornik/VErrorListener.h>

#include <memory>
#include <sstream>
#include <string>

namespace Tolvane::Tools {
namespace {

struct ShowArguments {
    std::string file;
    LoadOptions load;
    std::string port;
    std::string path;
    std::size_t frame = 0;
    bool json = false;
    bool quiet = false;
    std::string plugin;
    std::optional<std::string> types;
    Limits limits;
};

void evaluate(TypedNode& node, ValueReport& report) {
    const VErrorListener listener(
        [&](const VString& message) { report.messages.emplace_back(message.asChar()); });
    Pelmor::AnyValue value;
    report.wasRead = node.read(value) && value.hasValue();
    report.wasWritten = report.wasRead && node.write(value);
}

LibraryAnswer show(const TavrikGraph::Executor::TypeTranslation& translation,
                   const Pelmor::Type& type, const Rig& rig, const ShowArguments& arguments,
                   ChildSide& self) {
    TypedNode node(translation, type);
    node.requirePorts(arguments.plugin);
    self.enter(Stage::Usage);
    fillFromRig(node.inputPlace(), rig, arguments.frame);
    ValueReport report{arguments.plugin,
                       arguments.file + ", frame " + std::to_string(arguments.frame),
                       arguments.port, arguments.path};
    self.enter(Stage::Evaluating);
    self.atFrame(arguments.frame);
    evaluate(node, report);
    self.enter(Stage::Reporting);
    const FoundData found = findData(node.outputPlace(), arguments.path);
    std::ostringstream text;
    if (arguments.json)
        printValuesAsJson(text, report, found);
    else if (arguments.quiet)
        text << verdictOf(report);
    else
        printValues(text, report, found);
    return {report.ok(), text.str(), arguments.json};
}

bool carryOut(const ShowArguments& arguments) {
    const Pelmor::Library types = typesOf(arguments.types);
    const Pelmor::Type type = typeNamed(arguments.port, types);
    const Rig rig =
        readRigWithFrame(arguments.file, arguments.load, arguments.frame, arguments.limits);
    return askLibrary(arguments.plugin, arguments.limits, [&](auto& translation, ChildSide& self) {
        const WatchedTranslation watched(translation, self);
        return show(watched, type, rig, arguments, self);
    });
}

}  // namespace

Command addShow(CLI::App& app) {
    const auto arguments = std::make_shared<ShowArguments>();
    CLI::App& show = *app.add_subcommand(
        "show",
        "Shows the values of an attribute after one frame of a rig came back in it.\n"
        "Exit status: 0 if the value was carried, 1 if not, 2 if there is nothing to show.");
    addRig(show, arguments->file);
    show.add_option("PATH", arguments->path,
                    "Show this part only: names[3], or [2].names in an array (default: all)")
        ->option_text(" ");
    show.add_option("--port", arguments->port, "The type whose port it is")
        ->option_text("TYPE")
        ->required();
    addFrame(show, arguments->frame);
    addRigOptions(show, arguments->load);
    show.add_flag("--json", arguments->json, "Print one JSON object instead of the tree");
    addQuiet(show, arguments->quiet);
    addPlugin(show, arguments->plugin);
    addTypes(show, arguments->types);
    addLimits(show, arguments->limits);
    return {&show, [arguments] { return carryOut(*arguments) ? 0 : 1; }};
}

}  // namespace Tolvane::Tools
