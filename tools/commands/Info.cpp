#include "tools/commands/Info.h"

#include "tools/commands/CommonOptions.h"
#include "tools/process/Interruption.h"
#include "tools/report/InfoReport.h"
#include "tools/report/StandardOutput.h"
#include "tools/rig/ReadRig.h"

#include <memory>
#include <optional>
#include <sstream>
#include <string>

namespace Tolvane::Tools {
namespace {

struct InfoArguments {
    std::string file;
    std::optional<std::string> root;
    bool json = false;
    bool quiet = false;
    Limits limits;
};

int sayWhatIsInside(const InfoArguments& arguments) {
    const auto interruptible = [&] {
        const InterruptionGuard guard;
        return readInfo(arguments.file, arguments.root, arguments.limits);
    };
    std::ostringstream text;
    const RigInfo info = interruptible();
    if (arguments.json)
        printInfoAsJson(text, info);
    else if (!arguments.quiet)
        printInfo(text, info);
    print(text.str());
    return 0;
}

}  // namespace

Command addInfo(CLI::App& app) {
    const auto arguments = std::make_shared<InfoArguments>();
    CLI::App& info = *app.add_subcommand(
        "info",
        "Says what a rig file holds: its joints, animations, meshes, up axis and unit.\n"
        "Nothing is evaluated. Exit status: 0 if the file could be read, else 2.");
    addRig(info, arguments->file);
    addRoot(info, arguments->root);
    info.add_flag("--json", arguments->json, "Print one JSON object instead");
    addQuiet(info, arguments->quiet);
    addLimits(info, arguments->limits);
    info.footer(
        "\"tolvane run --help\" says which nodes are joints. Of them are counted: bones of\n"
        "skins, those that an animation moves, and those that are neither.");
    return {&info, [arguments] { return sayWhatIsInside(*arguments); }};
}

}  // namespace Tolvane::Tools
