#include "tools/commands/Trace.h"

#include "tools/check/Content.h"
#include "tools/commands/AskLibrary.h"
#include "tools/commands/CommonOptions.h"
#include "tools/commands/OneFrame.h"
#include "tools/inspect/TypedNode.h"
#include "tools/report/TraceReport.h"

#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

struct TraceArguments {
    std::optional<std::string> file;
    std::optional<std::string> generated;
    std::optional<std::string> port;
    std::size_t frame = 0;
    std::size_t elements = Content().elements;
    std::uint64_t seed = Content().seed;
    std::string direction = "both";
    std::optional<std::size_t> fail;
    std::string format = "text";
    bool json = false;
    std::string plugin;
    std::optional<std::string> types;
    Limits limits;
};

void refuseContradictions(const TraceArguments& arguments) {
    if (arguments.file.has_value() == arguments.generated.has_value())
        throw Error(Stage::Usage, "", "trace: needs a FILE, or --generated and a type");
    if (arguments.generated && arguments.port)
        throw Error(Stage::Usage, "", "--port is for the data of a rig; --generated names a type");
}

std::string textOf(const TraceReport& report, const TraceArguments& arguments) {
    std::ostringstream text;
    if (arguments.json || arguments.format == "json")
        printTraceAsJson(text, report);
    else if (arguments.format == "trace-event")
        printTraceEvents(text, report);
    else
        printTrace(text, report);
    return text.str();
}

bool carryOut(const TraceArguments& arguments) {
    refuseContradictions(arguments);
    const Pelmor::Library types = typesOf(arguments.types);
    const auto& only = arguments.generated ? arguments.generated : arguments.port;
    std::vector<Pelmor::Type> wanted;
    if (only) wanted.push_back(typeNamed(*only, types));

    TraceReport report{arguments.plugin, "", {}};
    FillPort fill;
    if (arguments.file) {
        const auto rig = std::make_shared<Rig>(
            readRigWithFrame(*arguments.file, arguments.frame, arguments.limits));
        report.data = *arguments.file + ", frame " + std::to_string(arguments.frame);
        fill = [rig, frame = arguments.frame](const DataPlace& port) {
            fillFromRig(port, *rig, frame);
        };
    } else {
        Content content;
        content.seed = arguments.seed;
        content.elements = arguments.elements;
        report.data = "generated, with " + inWords(content);
        fill = [content](const DataPlace& port) { Tools::fill(port, content); };
    }

    const TraceOptions options{arguments.direction != "out", arguments.direction != "in",
                               arguments.fail};
    return askLibrary(arguments.plugin, arguments.limits, [&](const auto& translation, ChildSide&) {
        const auto all = only ? wanted : carriedTypes(translation, types);
        report.translations = traceEvaluation(translation, all, fill, options);
        // What was made to fail may.
        return LibraryAnswer{arguments.fail || report.ok(), textOf(report, arguments)};
    });
}

}  // namespace

Command addTrace(CLI::App& app) {
    const auto arguments = std::make_shared<TraceArguments>();
    CLI::App& trace = *app.add_subcommand(
        "trace",
        "Lists every host call of one evaluation, with what it gave and what it took.\n"
        "Exit status: 0 if every value was carried, 1 if not, 2 if nothing can be traced.");
    trace.add_option("FILE", arguments->file, "A rig: BVH, glTF, GLB, FBX, COLLADA, ...");
    trace
        .add_option("--generated", arguments->generated,
                    "Trace a port of this type with generated data instead of a rig's")
        ->option_text("TYPE");
    trace
        .add_option("--elements", arguments->elements,
                    "Generate so many elements in each array (default: 3)")
        ->option_text("N");
    trace.add_option("--seed", arguments->seed, "Generate other data (default: 1)")
        ->option_text("N");
    trace
        .add_option("--port", arguments->port,
                    "Trace a port of this type (default: of all that the library names)")
        ->option_text("TYPE");
    trace.add_option("--frame", arguments->frame, "Take this frame, counted from 0 (default: 0)")
        ->option_text("N");
    trace
        .add_option("--direction", arguments->direction,
                    "Trace values on their way into the graph, out of it, or both (default)")
        ->option_text("in|out|both")
        ->check(CLI::IsMember({"in", "out", "both"}));
    trace.add_option("--fail", arguments->fail, "Make call N fail, and show what follows")
        ->option_text("N")
        ->check(CLI::PositiveNumber);
    trace
        .add_option("--format", arguments->format,
                    "text (default), json, or trace-event for viewers of timelines")
        ->option_text("FORMAT")
        ->check(CLI::IsMember({"text", "json", "trace-event"}));
    trace.add_flag("--json", arguments->json, "The same as --format json");
    addPlugin(trace, arguments->plugin);
    addTypes(trace, arguments->types);
    addLimits(trace, arguments->limits);
    return {&trace, [arguments] { return carryOut(*arguments) ? 0 : 1; }};
}

}  // namespace Tolvane::Tools
