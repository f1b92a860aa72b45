#include "tools/commands/Run.h"

#include "tools/node/RunFrames.h"
#include "tools/report/OutputFile.h"
#include "tools/report/Picture.h"
#include "tools/report/ProgressBar.h"
#include "tools/report/Report.h"
#include "tools/rig/FrameRange.h"
#include "tools/rig/LoadRig.h"
#include "tools/support/Error.h"
#include "tools/types/ReadTypes.h"

#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <cmath>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Tolvane::Tools {
namespace {

namespace fs = std::filesystem;

struct RunArguments {
    std::string file;
    std::string plugin;
    std::optional<std::string> types;
    std::optional<std::string> frames;
    std::optional<std::string> framesPerSecond;
    std::optional<std::string> animation;
    bool churn = false;
    std::optional<std::string> picture;
    bool json = false;
};

// The rig and the plugin that come with the program stand in a fixed place relative to it, in an
// installed tree and in a build tree alike.
std::string besideProgram(const char* relativePath) {
    std::error_code ignored;
    const fs::path program = fs::read_symlink("/proc/self/exe", ignored);
    return (program.parent_path() / relativePath).lexically_normal().string();
}

double parseRate(const std::string& text) {
    double rate = 0;
    if (CLI::detail::lexical_cast(text, rate) && std::isfinite(rate) && rate > 0) return rate;
    throw Error("--fps " + text + ": is not a positive number of frames per second");
}

LoadOptions loadOptions(const RunArguments& arguments) {
    LoadOptions options;
    options.animation = arguments.animation;
    if (arguments.framesPerSecond) options.framesPerSecond = parseRate(*arguments.framesPerSecond);
    return options;
}

RunOptions runOptions(const RunArguments& arguments) {
    RunOptions options;
    if (arguments.frames) options.frames = parseFrameRange(*arguments.frames);
    options.churn = arguments.churn;
    options.draw = arguments.picture.has_value();
    if (arguments.types) {
        TypesOfFile types = readTypes(*arguments.types);
        options.types = std::move(types.library);
        options.expectedTypes = std::move(types.structNames);
    }
    return options;
}

// Everything that can be wrong with the request comes to light before anything is printed.
bool runAsAsked(const RunArguments& arguments) {
    const RunOptions options = runOptions(arguments);
    const Rig rig = loadRig(arguments.file, loadOptions(arguments));
    framesOf(rig, options.frames);
    std::optional<OutputFile> picture;
    if (arguments.picture) {
        std::vector<std::string> filesRead = rig.filesRead;
        filesRead.push_back(arguments.plugin);
        if (arguments.types) filesRead.push_back(*arguments.types);
        picture.emplace(*arguments.picture, filesRead);
    }
    const TavrikGraph::Executor::TranslationLibrary library(arguments.plugin);

    const PluginSummary pluginSummary = summarise(library);
    const RigSummary rigSummary = summarise(rig);
    std::optional<ProgressBar> progress;
    const RunListener listener{
        [&](const RoundTrip& roundTrip) {
            if (picture && !roundTrip.carriesASkeleton())
                throw Error(
                    *arguments.picture +
                    ": cannot be drawn: no port carries a record with an array of transforms");
            if (!arguments.json)
                printIntroduction(std::cout, pluginSummary, rigSummary, roundTrip.portNames());
            progress.emplace();
        },
        [&](std::size_t done, std::size_t total) { progress->show(done, total); }};
    const RunResult result = runFrames(rig, library.translation(), options, listener);
    progress.reset();

    if (picture) picture->write(drawPicture(rig, result.snapshots));
    if (arguments.json)
        printJson(std::cout, pluginSummary, rigSummary, result);
    else
        printFindings(std::cout, result);
    if (!std::cout.flush()) throw Error("standard output: cannot be written to");
    return result.ok();
}

}  // namespace

Command addRun(CLI::App& app) {
    const auto arguments = std::make_shared<RunArguments>();
    arguments->file = besideProgram("../share/tolvane/examples/walk.bvh");
    arguments->plugin = besideProgram("../lib/TolvanePlugin.so");

    CLI::App& run = *app.add_subcommand(
        "run",
        "Sends each frame of a rig through the plugin and compares what comes back.\n"
        "Exit status: 0 if all is equal, 1 if anything differs or fails, 2 if it cannot run.");
    run.add_option("FILE", arguments->file,
                   "A rig: BVH, glTF, GLB, FBX, COLLADA, ... (default: the bundled walk)");
    run.add_option("--frames", arguments->frames,
                   "Run frames A to B only, counted from 0, both included")
        ->option_text("A:B");
    run.add_option("--fps", arguments->framesPerSecond,
                   "Sample N frames per second (default: the rate of the animation)")
        ->option_text("N");
    run.add_option("--animation", arguments->animation,
                   "Use the animation of this name (default: the first)")
        ->option_text("NAME");
    run.add_flag("--churn", arguments->churn,
                 "Change the number of joints and limbs from frame to frame");
    run.add_option("--svg", arguments->picture, "Draw the skeleton as it came back")
        ->option_text("OUT.svg");
    run.add_flag("--json", arguments->json, "Print one JSON object instead of the report");
    run.add_option("--plugin", arguments->plugin,
                   "Load this translation library (default: the plugin that comes with tolvane)")
        ->option_text("LIBRARY");
    run.add_option("--types", arguments->types,
                   "Let the graph know the structs and enums that this file describes, in JSON")
        ->option_text("FILE");
    return {&run, [arguments] { return runAsAsked(*arguments); }};
}

}  // namespace Tolvane::Tools
