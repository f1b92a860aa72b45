#include "tools/commands/Info.h"

#include "tools/process/Interruption.h"
#include "tools/report/InfoReport.h"
#include "tools/rig/ReadRig.h"
#include "tools/support/Error.h"

#include <iostream>
#include <memory>
#include <string>

namespace Tolvane::Tools {
namespace {

struct InfoArguments {
    std::string file;
    bool json = false;
};

int sayWhatIsInside(const InfoArguments& arguments) {
    const auto interruptible = [&] {
        const InterruptionGuard guard;
        return readInfo(arguments.file, Limits());
    };
    (arguments.json ? printInfoAsJson : printInfo)(std::cout, interruptible());
    if (!std::cout.flush())
        throw Error(Stage::Writing, "standard output", "standard output: cannot be written to");
    return 0;
}

}  // namespace

Command addInfo(CLI::App& app) {
    const auto arguments = std::make_shared<InfoArguments>();
    CLI::App& info = *app.add_subcommand(
        "info",
        "Says what a rig file holds: its joints, animations, meshes, up axis and unit.\n"
        "Nothing is evaluated. Exit status: 0 if the file could be read, else 2.");
    info.add_option("FILE", arguments->file, "A rig: BVH, glTF, GLB, FBX, COLLADA, ...")
        ->required();
    info.add_flag("--json", arguments->json, "Print one JSON object instead");
    info.footer(
        "\"tolvane run --help\" says which nodes are joints. Of them are counted: bones of\n"
        "skins, those that an animation moves, and those that are neither.");
    return {&info, [arguments] { return sayWhatIsInside(*arguments); }};
}

}  // namespace Tolvane::Tools
