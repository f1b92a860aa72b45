#include "tools/commands/Run.h"

#include "tools/commands/CommonOptions.h"
#include "tools/commands/RunMany.h"
#include "tools/commands/RunRig.h"
#include "tools/report/Colours.h"
#include "tools/support/Columns.h"
#include "tools/support/Stage.h"

#include <memory>
#include <string_view>

#include <unistd.h>

namespace Tolvane::Tools {
namespace {

constexpr std::string_view kJointsRule =
    "Joints are the bones of skins; where there are no skins, the nodes that an animation moves, "
    "but for cameras and lights; and what lies below these or between the bones of a skin, without "
    "meshes, cameras, lights, the scene's root and the end sites of BVH files. Bones are known as "
    "nodes, not by name. In a file without any of these every node is taken for a joint.";

int runAsAsked(RunArguments& arguments) {
    if (isAboutMany(arguments)) return runMany(arguments);
    arguments.file = arguments.files.front();
    return runRig(arguments) ? 0 : 1;
}

}  // namespace

Command addRun(CLI::App& app) {
    const auto arguments = std::make_shared<RunArguments>();
    arguments->files = {bundledWalk()};

    CLI::App& run = *app.add_subcommand(
        "run",
        "Sends each frame of a rig through the plugin and compares what comes back.\n"
        "Exit status: 0 if all is equal, 1 if anything differs or fails, 2 if it cannot run.");
    run.footer(
        wrapped(kJointsRule, 0) + "\n\n" +
        wrapped(std::string("Each rig is read, and each library tried, in a process of its own. "
                            "With --json an error is an object too, "
                            "{\"error\": {\"stage\", \"what\", \"file\"}}; the stages are ") +
                    stageWords() + ".",
                0));
    addEach(run, "FILE", arguments->files,
            "Rigs (BVH, glTF, GLB, FBX, COLLADA, ...) and folders of rigs (default: the\n"
            "bundled walk). Of several, each gets a row or, with --json, an object in a line.")
        ->option_text("...");
    addJobs(run, arguments->jobs,
            "Run N of several rigs at once (default: one for each processor)");
    run.add_option("--frames", arguments->frames, "Run frames A to B only, counted from 0")
        ->option_text("A:B");
    addRigOptions(run, arguments->load);
    run.add_flag("--churn", arguments->churn,
                 "Change the number of joints and limbs from frame to frame");
    run.add_option("--svg", arguments->picture, "Draw the skeleton as it came back")
        ->option_text("OUT.svg");
    run.add_option("--html", arguments->page,
                   "Make a page that plays the skeleton as it came back over the one that went in")
        ->option_text("OUT.html");
    run.add_flag("--json", arguments->json, "Print one JSON object instead of the report");
    CLI::Option* quiet = addQuiet(run, arguments->quiet);
    run.add_flag("--verbose", arguments->verbose, "Shorten nothing, and leave nothing out")
        ->option_text(" ")
        ->excludes(quiet);
    addPlugin(run, arguments->plugin);
    addTypes(run, arguments->types);
    addLimits(run, arguments->limits);
    return {&run, [arguments] {
                arguments->inColour = coloursWanted(STDOUT_FILENO);
                return runAsAsked(*arguments);
            }};
}

}  // namespace Tolvane::Tools
