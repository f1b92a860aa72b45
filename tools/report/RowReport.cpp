#include "tools/report/Report.h"
#include "tools/report/Words.h"
#include "tools/support/OneLine.h"

namespace Tolvane::Tools {
namespace {

constexpr const char* kMark = "*";

// The rows of many rigs are printed one by one, so that their widths are the same whatever follows.
std::string row(const std::string& verdict, const std::vector<std::string>& numbers,
                const std::string& file) {
    constexpr std::size_t kVerdictWidth = 7;
    constexpr std::size_t kNumberWidth = 11;
    const auto padding = [](std::size_t width, const std::string& text) {
        return std::string(text.size() < width ? width - text.size() : 0, ' ');
    };
    std::string line = verdict + padding(kVerdictWidth, verdict);
    for (const std::string& number : numbers) line += padding(kNumberWidth, number) + number;
    return line + "   " + oneLine(file);
}

}  // namespace

std::string headOfRows() {
    return row("Verdict", {"Joints", "Frames", "Values", "Mismatches"}, "File");
}

std::string rowOf(const RigSummary& rig, const RunResult& result) {
    return row(result.ok() ? "equal" : "FAILED",
               {grouped(rig.joints) + (rig.hasSkeleton ? "" : kMark), grouped(rig.frames),
                grouped(result.leavesCompared()), grouped(result.mismatches())},
               rig.file);
}

std::string rowOf(const std::string& file, const Error& error) {
    return row(error.status() == 1 ? "FAILED" : "not run", {"-", "-", "-", "-"}, file);
}

std::string sumOf(std::size_t equal, std::size_t failed, std::size_t notRun) {
    const std::string text = counted(equal + failed + notRun, "rig", "rigs") + ": ";
    if (failed + notRun == 0) return text + "all came back as they went in.";
    return text + grouped(equal) + " came back as they went in" +
           (failed == 0 ? "" : ", " + grouped(failed) + " FAILED") +
           (notRun == 0 ? "" : ", " + grouped(notRun) + " could not be run") + ".";
}

std::string noteOnSkeletons() {
    return std::string(kMark) + " no skeleton: every node taken for a joint";
}

}  // namespace Tolvane::Tools
