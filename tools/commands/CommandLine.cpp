#include "tools/commands/CommandLine.h"

#include "tools/commands/Run.h"
#include "tools/support/Error.h"

#include <algorithm>
#include <string>
#include <vector>

namespace Tolvane::Tools {

bool runCommandLine(int count, const char* const* arguments) {
    CLI::App app("Runs rigs through TolvanePlugin, from the host into the graph and back.");
    app.name("tolvane");
    app.set_version_flag("--version", "tolvane " TOLVANE_VERSION);
    const std::vector<Command> commands{addRun(app)};

    const auto named = [&] {
        return std::find_if(commands.begin(), commands.end(),
                            [](const Command& command) { return command.options->parsed(); });
    };
    try {
        app.parse(count, arguments);
    } catch (const CLI::Success& helpOrVersion) {
        app.exit(helpOrVersion);
        return true;
    } catch (const CLI::ParseError& error) {
        const std::string name =
            named() == commands.end() ? "" : named()->options->get_name() + " ";
        throw Error(std::string(error.what()) + " (try \"tolvane " + name + "--help\")");
    }
    if (named() == commands.end())
        throw Error("a command is missing; \"tolvane run\" runs the bundled example");
    return named()->carryOut();
}

}  // namespace Tolvane::Tools
