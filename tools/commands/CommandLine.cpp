#include "tools/commands/CommandLine.h"

#include "tools/commands/Check.h"
#include "tools/commands/CommonOptions.h"
#include "tools/commands/HelpText.h"
#include "tools/commands/Info.h"
#include "tools/commands/Inspect.h"
#include "tools/commands/Run.h"
#include "tools/commands/Show.h"
#include "tools/commands/Trace.h"
#include "tools/report/Report.h"
#include "tools/report/StandardOutput.h"
#include "tools/support/Columns.h"
#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace Tolvane::Tools {
namespace {

constexpr const char* kDocuments =
    "In share/doc/tolvane, beside the program's bin: own_translation.md leads to a translation "
    "library of one's own, types.md says what --types takes, check.md what check tries.";

// Returns and throws what a command does.
int carryOut(int count, const char* const* arguments) {
    CLI::App app(
        "Runs rigs through translation libraries such as TolvanePlugin, and checks these.");
    app.footer(wrapped(kDocuments, 0));
    app.name("tolvane");
    // What follows the command is for it, also what has the name of another: a folder "check", say.
    app.require_subcommand(0, 1);
    app.formatter(std::make_shared<HelpText>());
    addVersion(app);
    const std::vector<Command> commands{addRun(app),     addInfo(app),  addCheck(app),
                                        addInspect(app), addTrace(app), addShow(app)};
    for (const Command& command : commands) addVersion(*command.options);

    const auto named = [&] {
        return std::find_if(commands.begin(), commands.end(),
                            [](const Command& command) { return command.options->parsed(); });
    };
    try {
        app.parse(count, arguments);
    } catch (const CLI::Success& helpOrVersion) {
        std::ostringstream text;
        app.exit(helpOrVersion, text, text);
        print(text.str());
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

// Whether "--json", or what is set behind it, such as "=false", means that it is wanted.
bool isTrue(std::string_view argument) {
    const std::size_t equals = argument.find('=');
    if (equals == std::string_view::npos) return true;
    bool value = true;
    CLI::detail::lexical_cast(std::string(argument.substr(equals + 1)), value);
    return value;
}

// Also where the arguments make no sense otherwise.
bool wantsJson(int count, const char* const* arguments) {
    constexpr std::string_view kJson = "--json", kFormat = "--format";
    const auto is = [](std::string_view argument, std::string_view option) {
        return argument.substr(0, argument.find('=')) == option;
    };
    bool wanted = false;
    for (int i = 1; i < count && arguments[i] != std::string_view("--"); ++i) {
        std::string_view argument = arguments[i];
        if (is(argument, kJson)) wanted = wanted || isTrue(argument);
        if (!is(argument, kFormat)) continue;
        if (argument != kFormat)
            argument.remove_prefix(kFormat.size() + 1);
        else if (i + 1 < count)
            argument = arguments[++i];
        wanted = wanted || argument == "json" || argument == "trace-event";
    }
    return wanted;
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
