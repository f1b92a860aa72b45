#include "tools/commands/Check.h"

#include "tools/check/CheckLibrary.h"
#include "tools/check/ElfFile.h"
#include "tools/commands/CommonOptions.h"
#include "tools/node/LibraryFile.h"
#include "tools/process/Interruption.h"
#include "tools/report/CheckReport.h"
#include "tools/report/ProgressBar.h"
#include "tools/report/StandardOutput.h"
#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

struct CheckArguments {
    std::string library;
    std::optional<std::string> types;
    std::string only;
    std::uint64_t seed = 1;
    std::optional<unsigned> jobs;
    Limits limits = caseLimits();
    bool json = false;
    bool list = false;
    bool failed = false;
    // Those of the limits that were set, as options of a command.
    std::string limitOptions;
};

// For a shell, whatever the text is.
std::string quoted(const std::string& text) {
    const bool plain = !text.empty() && text.find_first_not_of(
                                            "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                            "0123456789_-+./:,@%") == std::string::npos;
    if (plain) return text;
    std::string result = "'";
    for (const char character : text)
        result += character == '\'' ? "'\\''" : std::string(1, character);
    return result + "'";
}

std::string limitOptionsOf(const CLI::App& check) {
    std::string options;
    for (const char* name : {"--memory-limit", "--time-limit"})
        for (const std::string& value : check.get_option(name)->results())
            options += std::string(" ") + name + " " + quoted(value);
    return options;
}

std::string commandFor(const CheckArguments& arguments, const Case& tried) {
    // What the library needs in the process that loads it, such as the runtime of a sanitizer.
    const char* preloaded = std::getenv("LD_PRELOAD");
    std::string command = preloaded && *preloaded ? "LD_PRELOAD=" + quoted(preloaded) + " " : "";
    command += "tolvane check " + quoted(arguments.library);
    if (arguments.types) command += " --types " + quoted(*arguments.types);
    return command + " --only " + quoted("^" + std::string(tried.name) + "$") + " --seed " +
           std::to_string(arguments.seed) + arguments.limitOptions;
}

void list(const CheckArguments& arguments) {
    const std::vector<Case> cases = chooseCases(arguments.only);
    std::ostringstream text;
    if (arguments.json)
        printListAsJson(text, cases);
    else
        printList(text, cases);
    print(text.str());
}

// What is no library at all is no faulty one either.
void refuseNoElfFile(const std::string& path) {
    try {
        readElf(path);
    } catch (const Error& error) {
        throw Error(Stage::Loading, path,
                    path + ": cannot be loaded as a library: it is no ELF file");
    }
}

int statusOf(const CheckSummary& summary, const std::string& library) {
    if (summary.failed > 0) return 1;
    if (summary.unloaded == 0) return 0;
    std::cerr << "tolvane: " << oneLine(library)
              << ": cannot be checked, for it cannot be loaded\n";
    return 2;
}

int checkAsAsked(const CheckArguments& arguments) {
    if (arguments.list) {
        list(arguments);
        return 0;
    }
    if (arguments.library.empty())
        throw Error(Stage::Usage, "", "check: the library to be checked is missing");
    const InterruptionGuard guard;
    const std::vector<Case> cases = chooseCases(arguments.only);
    CheckSetting setting{arguments.library};
    setting.seed = arguments.seed;
    setting.limits = arguments.limits;
    setting.types = typesOf(arguments.types);
    refuseNoLibrary(setting.library);
    refuseNoElfFile(setting.library);

    const auto again = [&](const Case& tried) { return commandFor(arguments, tried); };
    CheckSummary summary;
    std::vector<CaseResult> results;
    std::optional<ProgressBar> progress(std::in_place);
    checkLibrary(
        setting, cases, arguments.jobs.value_or(2),
        [&](const CaseResult& result) {
            summary.count(result.finding);
            const bool isShown =
                !arguments.failed || result.finding.verdict == Finding::Verdict::Failed;
            if (!isShown) return;
            results.push_back(result);
            if (arguments.json) return;
            progress.emplace();
            std::ostringstream text;
            printCase(text, result, again(result.tried));
            print(text.str());
        },
        [&](std::size_t ended) { progress->show(ended, cases.size()); });
    progress.reset();

    std::ostringstream text;
    if (arguments.json)
        printCheckAsJson(text, setting, summary, results, again);
    else
        printSummary(text, summary);
    print(text.str());
    return statusOf(summary, setting.library);
}

}  // namespace

Command addCheck(CLI::App& app) {
    const auto arguments = std::make_shared<CheckArguments>();
    CLI::App& check = *app.add_subcommand(
        "check",
        "Tells whether a translation library is fit to be loaded by a host.\n"
        "Exit status: 0 if it keeps every rule, 1 if a case fails, 2 if it cannot be checked.");
    check.add_option("LIBRARY", arguments->library, "The translation library");
    addTypes(check, arguments->types);
    check.add_option("--only", arguments->only, "Try only cases whose name matches this")
        ->option_text("REGEX");
    addSeed(check, arguments->seed);
    addJobs(check, arguments->jobs, "Try N cases at once (default: 2)");
    check.add_flag("--json", arguments->json, "Print one JSON object instead of the report");
    check.add_flag("--list", arguments->list, "Print each case, and why it matters");
    check.add_flag("--failed", arguments->failed, "Print only the cases that fail");
    addLimits(check, arguments->limits, "a case");
    return {&check, [arguments, &check] {
                arguments->limitOptions = limitOptionsOf(check);
                return checkAsAsked(*arguments);
            }};
}

}  // namespace Tolvane::Tools
