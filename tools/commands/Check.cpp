#include "tools/commands/Check.h"

#include "tools/check/CheckLibrary.h"
#include "tools/commands/CommonOptions.h"
#include "tools/node/LibraryFile.h"
#include "tools/process/Interruption.h"
#include "tools/report/CheckReport.h"
#include "tools/report/ProgressBar.h"
#include "tools/support/Error.h"
#include "tools/types/ReadTypes.h"

#include <iostream>
#include <memory>
#include <optional>
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
    bool json = false;
    bool list = false;
    bool failed = false;
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

std::string commandFor(const CheckArguments& arguments, const Case& tried) {
    std::string command = "tolvane check " + quoted(arguments.library);
    if (arguments.types) command += " --types " + quoted(*arguments.types);
    return command + " --only " + quoted("^" + std::string(tried.name) + "$") + " --seed " +
           std::to_string(arguments.seed);
}

bool list(const CheckArguments& arguments) {
    const std::vector<Case> cases = chooseCases(arguments.only);
    if (arguments.json)
        printListAsJson(std::cout, cases);
    else
        printList(std::cout, cases);
    return true;
}

bool checkAsAsked(const CheckArguments& arguments) {
    if (arguments.list) return list(arguments);
    if (arguments.library.empty())
        throw Error(Stage::Usage, "", "check: the library to be checked is missing");
    const InterruptionGuard guard;
    const std::vector<Case> cases = chooseCases(arguments.only);
    CheckSetting setting{arguments.library};
    setting.seed = arguments.seed;
    if (arguments.types)
        during(Stage::Reading, *arguments.types,
               [&] { setting.types = readTypes(*arguments.types).library; });
    refuseNoLibrary(setting.library);

    const auto again = [&](const Case& tried) { return commandFor(arguments, tried); };
    CheckSummary summary;
    std::vector<CaseResult> results;
    std::optional<ProgressBar> progress(std::in_place);
    checkLibrary(
        setting, cases, arguments.jobs.value_or(2), caseLimits(),
        [&](const CaseResult& result) {
            summary.count(result.finding.verdict);
            results.push_back(result);
            const bool isShown =
                !arguments.failed || result.finding.verdict == Finding::Verdict::Failed;
            if (arguments.json || !isShown) return;
            progress.emplace();
            printCase(std::cout, result, again(result.tried));
            std::cout.flush();
        },
        [&](std::size_t ended) { progress->show(ended, cases.size()); });
    progress.reset();

    if (arguments.json)
        printCheckAsJson(std::cout, setting, results, again);
    else
        printSummary(std::cout, summary);
    if (!std::cout.flush())
        throw Error(Stage::Writing, "standard output", "standard output: cannot be written to");
    return summary.failed == 0;
}

}  // namespace

Command addCheck(CLI::App& app) {
    const auto arguments = std::make_shared<CheckArguments>();
    CLI::App& check = *app.add_subcommand(
        "check",
        "Tells whether a translation library is fit to be loaded by a host.\n"
        "Exit status: 0 if it keeps every rule, 1 if a case fails, 2 if it cannot be checked.");
    check.add_option("LIBRARY", arguments->library, "The translation library");
    check
        .add_option("--types", arguments->types,
                    "Let the graph know the structs and enums that this file describes, in JSON")
        ->option_text("FILE");
    check.add_option("--only", arguments->only, "Try only cases whose name matches this")
        ->option_text("REGEX");
    addSeed(check, arguments->seed);
    addJobs(check, arguments->jobs, "Try N cases at once (default: 2)");
    check.add_flag("--json", arguments->json, "Print one JSON object instead of the report");
    check.add_flag("--list", arguments->list, "Print each case, and why it matters");
    check.add_flag("--failed", arguments->failed, "Print only the cases that fail");
    return {&check, [arguments] { return checkAsAsked(*arguments) ? 0 : 1; }};
}

}  // namespace Tolvane::Tools
