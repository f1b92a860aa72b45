// Evaluates a rig under churn a hundred thousand times in one process, and fails if memory at the
// end differs by more than 1 % from what it was after the first thousand: soak PLUGIN RIG
#include "tools/node/RunFrames.h"
#include "tools/rig/LoadRig.h"

#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <cmath>
#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

using namespace Tolvane::Tools;

constexpr std::size_t kEvaluations = 100'000;
constexpr std::size_t kWarmUp = 1'000;
constexpr double kTolerance = 0.01;

// Read where the kernel counts page by page; its figures in other files are updated with a delay.
double residentMegabytes() {
    std::ifstream figures("/proc/self/smaps_rollup");
    std::string word;
    while (figures >> word && word != "Rss:") continue;
    double kibibytes = 0;
    if (!(figures >> kibibytes))
        throw std::runtime_error("/proc/self/smaps_rollup: cannot be read");
    return kibibytes * 1024 / 1e6;
}

bool staysWithinItsMemory(const char* plugin, const char* rigFile) {
    const Rig rig = loadRig(rigFile);
    const TavrikGraph::Executor::TranslationLibrary library(plugin);
    RunOptions options;
    options.churn = true;
    options.evaluations = kEvaluations;

    double before = 0, after = 0;
    const auto measure = [&](std::size_t done, std::size_t total) {
        if (done == kWarmUp) before = residentMegabytes();
        if (done == total) after = residentMegabytes();
    };
    const RunResult result = runFrames(rig, library.translation(), options, {{}, measure});
    const double change = after / before - 1;
    std::printf(
        "%zu evaluations, %zu mismatches: %.2f MB after %zu, %.2f MB at the end (%+.2f %%)\n",
        result.evaluated, result.mismatches(), before, kWarmUp, after, 100 * change);
    return result.ok() && std::abs(change) <= kTolerance;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        if (count != 3) throw std::runtime_error("usage: soak PLUGIN RIG");
        return staysWithinItsMemory(arguments[1], arguments[2]) ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "soak: %s\n", error.what());
        return 2;
    }
}
