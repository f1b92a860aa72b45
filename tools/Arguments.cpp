#include "tools/Arguments.h"

#include "tools/Error.h"

#include <cmath>
#include <filesystem>

#include <CLI/CLI.hpp>

namespace Tolvane {
namespace {

namespace fs = std::filesystem;

// Files that come with the program stand in a fixed place relative to it, installed or not.
std::string besideProgram(const char* relativePath) {
    std::error_code ignored;
    const fs::path program = fs::read_symlink("/proc/self/exe", ignored);
    return (program.parent_path() / relativePath).lexically_normal().string();
}

double parseRate(const std::string& text) {
    double rate = 0;
    if (CLI::detail::lexical_cast(text, rate) && std::isfinite(rate) && rate > 0) return rate;
    throw Error("--fps " + text + ": is no number of frames per second");
}

}  // namespace

std::optional<Arguments> parseArguments(int count, const char* const* arguments) {
    Arguments result;
    result.file = besideProgram("../share/tolvane/examples/walk.bvh");
    result.plugin = besideProgram("../lib/TolvanePlugin.so");
    std::optional<std::string> frames, framesPerSecond;

    CLI::App app("Runs rigs through TolvanePlugin, from the host into the graph and back.");
    app.name("tolvane");
    app.set_version_flag("--version", "tolvane " TOLVANE_VERSION);
    CLI::App& run = *app.add_subcommand(
        "run",
        "Sends each frame of a rig through the plugin and compares what comes back.\n"
        "Exit status: 0 if all is equal, 1 if anything differs or fails, 2 if it cannot run.");
    run.add_option("FILE", result.file,
                   "A rig: BVH, glTF, GLB, FBX, COLLADA, ... (the bundled walk without)");
    run.add_option("--frames", frames, "Only frames A to B, counted from 0, both included")
        ->option_text("A:B");
    run.add_option("--fps", framesPerSecond,
                   "Sample N frames per second, not as many as the animation was made with")
        ->option_text("N");
    run.add_option("--animation", result.load.animation, "That animation, not the first")
        ->option_text("NAME");
    run.add_flag("--churn", result.run.churn,
                 "Change from frame to frame how many joints and limbs there are");
    run.add_option("--svg", result.picture, "Draw the skeleton as it came back")
        ->option_text("OUT.svg");
    run.add_flag("--json", result.json, "Print one JSON object in place of the report");
    run.add_option("--plugin", result.plugin, "The translation library to load")
        ->option_text("LIBRARY");

    try {
        app.parse(count, arguments);
    } catch (const CLI::Success& helpOrVersion) {
        app.exit(helpOrVersion);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        throw Error(std::string(error.what()) + " (tolvane run --help tells what can be said)");
    }
    if (!run.parsed())
        throw Error("a command is missing; \"tolvane run\" runs the bundled example");
    if (frames) result.run.frames = parseFrameRange(*frames);
    if (framesPerSecond) result.load.framesPerSecond = parseRate(*framesPerSecond);
    result.run.draw = result.picture.has_value();
    return result;
}

}  // namespace Tolvane
