#include "tools/report/Report.h"
#include "tools/report/Words.h"
#include "tools/support/Columns.h"
#include "tools/support/OneLine.h"

#include <algorithm>

namespace Tolvane::Tools {
namespace {

constexpr const char* kMark = "*";

// The rows of many rigs are printed one by one, so that their widths are the same whatever follows.
struct Column {
    const char* head;
    std::size_t width;
};
constexpr Column kVerdict{"Verdict", 7};
constexpr Column kNumbers[] = {{"Joints", 8}, {"Frames", 9}, {"Values", 14}, {"Mismatches", 12}};
constexpr std::size_t kGapBeforeFile = 2;
// A row with huge numbers is rather too long than without its file.
constexpr std::size_t kLeastFile = 12;

std::string row(const std::string& verdict, const std::vector<std::string>& numbers,
                const std::string& file, bool wholePath) {
    const auto padding = [](std::size_t width, const std::string& text) {
        return std::string(text.size() < width ? width - text.size() : 0, ' ');
    };
    std::string line = verdict + padding(kVerdict.width, verdict);
    for (std::size_t i = 0; i < numbers.size(); ++i)
        line += padding(kNumbers[i].width, numbers[i]) + numbers[i];
    line += std::string(kGapBeforeFile, ' ');
    const std::size_t left = kLineColumns - std::min(line.size(), kLineColumns - kLeastFile);
    return line + (wholePath ? oneLine(file) : endOf(oneLine(file), left));
}

}  // namespace

std::string headOfRows() {
    std::vector<std::string> heads;
    for (const Column& column : kNumbers) heads.emplace_back(column.head);
    return row(kVerdict.head, heads, "File", true);
}

std::string rowOf(const RigSummary& rig, const RunResult& result, bool wholePath) {
    return row(result.ok() ? "equal" : "FAILED",
               {grouped(rig.joints) + (rig.hasSkeleton ? "" : kMark), grouped(rig.frames),
                grouped(result.leavesCompared()), grouped(result.mismatches())},
               rig.file, wholePath);
}

std::string rowOf(const std::string& file, const Error& error, bool wholePath) {
    return row(error.status() == 1 ? "FAILED" : "not run", {"-", "-", "-", "-"}, file, wholePath);
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
