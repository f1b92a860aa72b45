#include "tools/commands/CommandLine.h"

#include "tools/commands/Check.h"
#include "tools/commands/HelpText.h"
#include "tools/commands/Info.h"
#include "tools/commands/Inspect.h"
#include "tools/commands/Run.h"
#include "tools/commands/Show.h"
#include "tools/commands/Trace.h"
#include "tools/report/Report.h"
#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Tolvane::Tools {
namespace {

// Returns and throws what a command does.
int carryOut(int count, const char* const* arguments) {
    CLI::App app("Runs rigs through TolvanePlugin, from the host into the graph and back.");
    app.name("tolvane");
    app.formatter(std::make_shared<HelpText>());
    app.set_version_flag("-V,--version", "tolvane " TOLVANE_VERSION);
    const std::vector<Command> commands{addRun(app),     addInfo(app),  addCheck(app),
                                        addInspect(app), addTrace(app), addShow(app)};

    const auto named = [&] {
        return std::find_if(commands.begin(), commands.end(),
                            [](const Command& command) { return command.options->parsed(); });
    };
    try {
        app.parse(count, arguments);
    } catch (const CLI::Success& helpOrVersion) {
        app.exit(helpOrVersion);
        return 0;
    } catch (const CLI::ParseError& error) {
        const std::string name =
            named() == commands.end() ? "" : named()->options->get_name() + " ";
        throw Error(Stage::Usage, "",
                    std::string(error.what()) + " (try \"tolvane " + name + "--help\")");
    }
    if (named() == commands.end())
        throw Error(Stage::Usage, "",
                    "a command is missing; \"tolvane run\" runs the bundled example");
    return named()->carryOut();
}

// Also where the arguments make no sense otherwise.
bool wantsJson(int count, const char* const* arguments) {
    return std::any_of(arguments, arguments + count,
                       [](std::string_view argument) { return argument == "--json"; });
}

int tell(const Error& error, bool json) {
    if (json) {
        printJson(std::cout, error);
        std::cout.flush();
    }
    std::cerr << "tolvane: " << oneLine(error.what()) << "\n";
    return error.status();
}

}  // namespace

int runCommandLine(int count, const char* const* arguments) {
    const bool json = wantsJson(count, arguments);
    try {
        return carryOut(count, arguments);
    } catch (const Error& error) {
        return tell(error, json);
    } catch (const std::exception& exception) {
        return tell(Error(Stage::Other, "", exception.what()), json);
    }
}

}  // namespace Tolvane::Tools
