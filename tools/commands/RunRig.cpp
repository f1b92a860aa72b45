#include "tools/commands/RunRig.h"

#include "tools/commands/Evaluate.h"
#include "tools/node/LibraryFile.h"
#include "tools/process/Interruption.h"
#include "tools/report/OutputFile.h"
#include "tools/report/ProgressBar.h"
#include "tools/report/StandardOutput.h"
#include "tools/rig/FrameRange.h"
#include "tools/rig/ReadRig.h"
#include "tools/support/Error.h"
#include "tools/support/OneLine.h"
#include "tools/types/ReadTypes.h"

#include <iostream>
#include <utility>
#include <vector>

namespace Tolvane::Tools {
namespace {

RunOptions runOptions(const RunArguments& arguments) {
    RunOptions options;
    if (arguments.frames) options.frames = parseFrameRange(*arguments.frames);
    options.churn = arguments.churn;
    options.draw = arguments.picture.has_value();
    options.record = arguments.page.has_value();
    if (!arguments.types) return options;
    during(Stage::Reading, *arguments.types, [&] {
        TypesOfFile types = readTypes(*arguments.types);
        options.types = std::move(types.library);
        options.expectedTypes = std::move(types.structNames);
    });
    return options;
}

// The files that are known to be read before any is.
std::vector<std::string> filesToRead(const RunArguments& arguments) {
    std::vector<std::string> files{arguments.file, arguments.plugin};
    if (arguments.types) files.push_back(*arguments.types);
    return files;
}

OutputFiles outputs(const RunArguments& arguments) {
    OutputFiles files(filesToRead(arguments));
    if (arguments.picture) files.add(*arguments.picture);
    if (arguments.page) files.add(*arguments.page);
    return files;
}

}  // namespace

void refuseSenseless(const RunArguments& arguments) {
    during(Stage::Usage, "", [&] { runOptions(arguments); });
    refuseNoLibrary(arguments.plugin);
}

Evaluation carryOut(const RunArguments& arguments, const Watch& watch) {
    const OutputFiles files = outputs(arguments);
    const RunOptions options = during(Stage::Usage, "", [&] { return runOptions(arguments); });
    refuseNoLibrary(arguments.plugin);

    const Rig rig = readRig(arguments.file, arguments.load, arguments.limits, watch);
    during(Stage::Usage, "", [&] { framesOf(rig, options.frames); });
    files.refuseToReplace(rig.filesRead);
    Evaluation evaluation = evaluate(rig, arguments, options, watch);
    if (arguments.picture) files.write(*arguments.picture, *evaluation.picture);
    if (arguments.page) files.write(*arguments.page, *evaluation.page);
    return evaluation;
}

// Printing is left to its usual end where somebody interrupts it.
bool runRig(const RunArguments& arguments) {
    const auto interruptible = [&] {
        const InterruptionGuard guard;
        ProgressBar progress;
        return carryOut(arguments, [&](const Child& child) {
            if (!arguments.quiet && child.total() != 0) progress.show(child.done(), child.total());
        });
    };
    const Evaluation evaluation = interruptible();
    std::cerr << evaluation.printed;
    print(evaluation.report);
    if (evaluation.misdeed) std::cerr << "tolvane: " << oneLine(*evaluation.misdeed) << "\n";
    return evaluation.ok;
}

}  // namespace Tolvane::Tools
