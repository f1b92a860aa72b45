#include "tools/commands/Trace.h"

#include "tools/check/Content.h"
#include "tools/commands/AskLibrary.h"
#include "tools/commands/CommonOptions.h"
#include "tools/commands/OneFrame.h"
#include "tools/inspect/TypedNode.h"
#include "tools/node/NamedTypes.h"
#include "tools/node/WatchedTranslation.h"
#include "tools/report/TraceReport.h"

#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

// Each element is some calls, and each call is kept.
constexpr std::uint64_t kMostElements = 1'000'000;

struct TraceArguments {
    std::string file;
    LoadOptions load;
    std::optional<std::string> generated;
    std::optional<std::string> port;
    std::size_t frame = 0;
    std::size_t elements = Content().elements;
    std::uint64_t seed = Content().seed;
    std::string direction = "both";
    std::optional<std::size_t> fail;
    std::optional<std::string> format;
    bool json = false;
    bool quiet = false;
    bool verbose = false;
    std::string plugin;
    std::optional<std::string> types;
    Limits limits;
};

std::string textOf(const TraceReport& report, const TraceArguments& arguments) {
    std::ostringstream text;
    if (arguments.format == "json")
        printTraceAsJson(text, report);
    else if (arguments.format == "trace-event")
        printTraceEvents(text, report);
    else if (!arguments.quiet)
        printTrace(text, report, arguments.verbose);
    // What was made to fail may.
    if (arguments.format == "text" && !arguments.fail) text << verdictOf(report);
    return text.str();
}

// What `format` is to be where it is not given.
void settleFormat(TraceArguments& arguments) {
    const std::string otherwise = arguments.json ? "json" : "text";
    if (arguments.json && arguments.format.value_or(otherwise) != otherwise)
        throw Error(Stage::Usage, "",
                    "--json and --format " + *arguments.format + " exclude each other");
    if (!arguments.format) arguments.format = otherwise;
}

bool carryOut(TraceArguments& arguments) {
    settleFormat(arguments);
    const Pelmor::Library types = typesOf(arguments.types);
    const auto& only = arguments.generated ? arguments.generated : arguments.port;
    std::vector<Pelmor::Type> wanted;
    if (only) wanted.push_back(typeNamed(*only, types));

    TraceReport report{arguments.plugin, "", {}};
    FillPort fill;
    if (!arguments.generated) {
        const auto rig = std::make_shared<Rig>(
            readRigWithFrame(arguments.file, arguments.load, arguments.frame, arguments.limits));
        report.data = arguments.file + ", frame " + std::to_string(arguments.frame);
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

    TraceOptions options{arguments.direction != "out", arguments.direction != "in", arguments.fail};
    if (!arguments.generated) options.frame = arguments.frame;
    return askLibrary(arguments.plugin, arguments.limits, [&](auto& translation, ChildSide& self) {
        const WatchedTranslation watched(translation, self);
        const auto all = only ? wanted : carriedTypes(watched, types);
        report.translations =
            traceEvaluation({arguments.plugin, translation, self}, all, fill, options);
        self.enter(Stage::Reporting);
        return LibraryAnswer{arguments.fail || report.ok(), textOf(report, arguments),
                             arguments.format != "text"};
    });
}

}  // namespace

Command addTrace(CLI::App& app) {
    const auto arguments = std::make_shared<TraceArguments>();
    CLI::App& trace = *app.add_subcommand(
        "trace",
        "Lists every host call of one evaluation, with what it gave and what it took.\n"
        "Exit status: 0 if every value was carried, or with --fail; else 1; 2 if nothing can\n"
        "be traced.");
    CLI::Option* const file = addRig(trace, arguments->file);
    // A text of its own keeps the help from saying what an option excludes.
    CLI::Option* const generated =
        trace
            .add_option("--generated", arguments->generated,
                        "Trace a port of this type with generated data instead of a rig's")
            ->option_text("TYPE");
    addNumber(trace, "--elements", WholeRange{0, kMostElements}, into(arguments->elements),
              "Generate so many elements in each array (default: 3)")
        ->needs(generated);
    addSeed(trace, arguments->seed)->needs(generated);
    CLI::Option* const port =
        trace
            .add_option("--port", arguments->port,
                        "Trace a port of this type (default: of all that the library names)")
            ->option_text("TYPE");
    CLI::Option* const frame = addFrame(trace, arguments->frame);
    addRigOptions(trace, arguments->load);
    generated->excludes(file, port, frame, "--fps", "--animation", "--root");
    trace
        .add_option("--direction", arguments->direction,
                    "Trace values on their way into the graph, out of it, or both (default)")
        ->option_text("in|out|both")
        ->check(CLI::IsMember({"in", "out", "both"}));
    addNumber(trace, "--fail", WholeRange{1, kMostCounted}, into(arguments->fail),
              "Make call N fail, and show what follows");
    trace
        .add_option("--format", arguments->format,
                    "text (default), json, or trace-event for viewers of timelines")
        ->option_text("FORMAT")
        ->check(CLI::IsMember({"text", "json", "trace-event"}));
    trace.add_flag("--json", arguments->json, "The same as --format json");
    CLI::Option* quiet = addQuiet(trace, arguments->quiet);
    trace.add_flag("--verbose", arguments->verbose, "Shorten nothing, and leave nothing out")
        ->option_text(" ")
        ->excludes(quiet);
    addPlugin(trace, arguments->plugin);
    addTypes(trace, arguments->types);
    addLimits(trace, arguments->limits);
    return {&trace, [arguments] { return carryOut(*arguments) ? 0 : 1; }};
}

}  // namespace Tolvane::Tools
