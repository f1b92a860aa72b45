// The command line. Exit status 0 if everything that was asked for was done and every value came
// back as it went in, 1 if not, 2 for bad usage or a file that cannot be read or written.

#include "tools/Arguments.h"
#include "tools/Error.h"
#include "tools/LoadRig.h"
#include "tools/OneLine.h"
#include "tools/OutputFile.h"
#include "tools/ProgressBar.h"
#include "tools/Report.h"
#include "tools/Run.h"

#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <exception>
#include <iostream>
#include <vector>

namespace Tolvane {
namespace {

// Everything that can be wrong with the request comes to light before anything is printed.
bool runAsAsked(const Arguments& arguments) {
    const Rig rig = loadRig(arguments.file, arguments.load);
    framesOf(rig, arguments.run.frames);
    std::optional<OutputFile> picture;
    if (arguments.picture) {
        std::vector<std::string> filesRead = rig.filesRead;
        filesRead.push_back(arguments.plugin);
        picture.emplace(*arguments.picture, filesRead);
    }
    const TavrikGraph::Executor::TranslationLibrary library(arguments.plugin);

    const PluginSummary pluginSummary = summarise(library);
    const RigSummary rigSummary = summarise(rig);
    std::optional<ProgressBar> progress;
    const RunListener listener{
        [&](const RoundTrip& roundTrip) {
            if (!arguments.json)
                printIntroduction(std::cout, pluginSummary, rigSummary, roundTrip.portNames());
            progress.emplace();
        },
        [&](std::size_t done, std::size_t total) { progress->show(done, total); }};
    const RunResult result = run(rig, library.translation(), arguments.run, listener);
    progress.reset();

    if (picture) picture->write(drawPicture(rig, result.snapshots));
    if (arguments.json)
        printJson(std::cout, pluginSummary, rigSummary, result);
    else
        printFindings(std::cout, result);
    if (!std::cout.flush()) throw Error("standard output: cannot be written to");
    return result.ok();
}

int runProgram(int count, const char* const* arguments) {
    try {
        const auto asked = parseArguments(count, arguments);
        return !asked || runAsAsked(*asked) ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "tolvane: " << oneLine(error.what()) << "\n";
        return 2;
    }
}

}  // namespace
}  // namespace Tolvane

int main(int count, char** arguments) { return Tolvane::runProgram(count, arguments); }
