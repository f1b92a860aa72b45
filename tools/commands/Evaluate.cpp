#include "tools/commands/Evaluate.h"

#include "tools/commands/AskLibrary.h"
#include "tools/node/LoadedLibrary.h"
#include "tools/node/WatchedTranslation.h"
#include "tools/process/Message.h"
#include "tools/report/Report.h"
#include "tools/support/Error.h"
#include "tools/view/Page.h"
#include "tools/view/Picture.h"

#include <OpenVornik/VErrorListener.h>

#include <sstream>
#include <utility>

namespace Tolvane::Tools {
namespace {

constexpr auto exchangeEvaluation = [](auto& message, auto& evaluation) {
    const auto text = [&](auto& value) { message.text(value); };
    message.flag(evaluation.ok);
    message.text(evaluation.report);
    message.optional(evaluation.picture, text);
    message.optional(evaluation.page, text);
    message.optional(evaluation.misdeed, text);
    message.text(evaluation.printed);
    message.text(evaluation.row);
    message.flag(evaluation.hasSkeleton);
};

// What the run and the library have left once the library is gone.
struct Findings {
    PluginSummary plugin;
    RunResult run;
};

RunListener listenerFor(const RunArguments& arguments, ChildSide& self) {
    RunListener listener;
    listener.begins = [&](const RoundTrip& roundTrip) {
        if (arguments.picture && !roundTrip.carriesASkeleton())
            throw Error(Stage::Writing, *arguments.picture,
                        *arguments.picture +
                            ": cannot be drawn: no port carries a record with an "
                            "array of transforms");
        self.enter(Stage::Evaluating);
    };
    listener.evaluates = [&self](std::size_t frame) { self.atFrame(frame); };
    listener.evaluated = [&self](std::size_t done, std::size_t total) {
        self.noticePrints();
        self.progress(done, total);
        // All that follows is the end of what the library has made.
        if (done == total) self.enter(Stage::Releasing);
    };
    return listener;
}

Findings useLibrary(const Rig& rig, const RunArguments& arguments, const RunOptions& options,
                    ChildSide& self) {
    Findings findings;
    // The run notes what the host displays, but for what comes before and after it.
    HostMessages messages;
    bool isRunning = false;
    const VErrorListener listener([&](const VString& message) {
        if (!isRunning) messages.add(message.asChar());
    });
    {
        const LoadedLibrary library(arguments.plugin, self);
        WatchedTranslation translation(library.translation(), self);
        findings.plugin = summarise(arguments.plugin, translation);
        isRunning = true;
        findings.run = runFrames(rig, translation, options, listenerFor(arguments, self));
        isRunning = false;
    }
    findings.run.hostMessages.add(messages);
    return findings;
}

std::string reportOf(const Findings& findings, const Rig& rig, const RunArguments& arguments) {
    const TextOptions options{arguments.verbose, arguments.inColour};
    std::ostringstream report;
    if (arguments.json)
        printJson(report, findings.plugin, summarise(rig), findings.run);
    else if (!arguments.quiet)
        printReport(report, findings.plugin, summarise(rig), findings.run, options);
    else if (!findings.run.ok())
        printVerdict(report, findings.run, options);
    return report.str();
}

std::string evaluateInChild(const Rig& rig, const RunArguments& arguments,
                            const RunOptions& options, ChildSide& self) {
    Findings findings = useLibrary(rig, arguments, options, self);
    findings.run.misdeed = misdeedOf(arguments.plugin, self);
    self.enter(Stage::Reporting);
    Evaluation evaluation;
    evaluation.ok = findings.run.ok();
    evaluation.report = reportOf(findings, rig, arguments);
    self.enter(Stage::Reporting);
    if (arguments.picture) evaluation.picture = drawPicture(rig, findings.run.snapshots);
    self.enter(Stage::Reporting);
    if (arguments.page) evaluation.page = makePage(rig, findings.plugin.name, findings.run);
    if (findings.run.misdeed) evaluation.misdeed = findings.run.misdeed->what();
    evaluation.row = rowOf(summarise(rig), findings.run, arguments.verbose);
    evaluation.hasSkeleton = rig.hasSkeleton;
    evaluation.printed = self.allowedPrints();
    return packed(evaluation, exchangeEvaluation);
}

}  // namespace

Evaluation evaluate(const Rig& rig, const RunArguments& arguments, const RunOptions& options,
                    const Watch& watch) {
    // A long animation takes its time; what counts is that it goes on.
    Limits limits = arguments.limits;
    limits.processorTime = 0;
    const Outcome outcome =
        runInChild([&](ChildSide& self) { return evaluateInChild(rig, arguments, options, self); },
                   limits, watch);
    if (outcome.end == Outcome::End::Answered)
        return unpacked<Evaluation>(outcome.answer, exchangeEvaluation);
    if (outcome.end == Outcome::End::Failed) throw Error(*outcome.error);
    throw downfall(arguments.plugin, outcome);
}

}  // namespace Tolvane::Tools
