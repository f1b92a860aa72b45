#include "tools/report/CheckReport.h"

#include "tools/report/Json.h"
#include "tools/report/Words.h"
#include "tools/support/Columns.h"
#include "tools/support/OneLine.h"

#include <ostream>

namespace Tolvane::Tools {
namespace {

using Verdict = Finding::Verdict;

constexpr std::size_t kIndent = 10;

// Cases that are in order are to be passed over by the eye.
const char* shownWordFor(Verdict verdict) {
    return verdict == Verdict::Failed    ? "FAILED "
           : verdict == Verdict::Warning ? "warning"
           : verdict == Verdict::Skipped ? "skipped"
                                         : "passed ";
}

void printBelow(std::ostream& out, const std::string& text) {
    out << wrapped(oneLine(text), kIndent) << "\n";
}

}  // namespace

void CheckSummary::count(const Finding& finding) {
    if (finding.isUnloaded) ++unloaded;
    switch (finding.verdict) {
        case Verdict::Passed:
            ++passed;
            break;
        case Verdict::Warning:
            ++warnings;
            break;
        case Verdict::Failed:
            ++failed;
            break;
        case Verdict::Skipped:
            ++skipped;
            break;
    }
}

void printCase(std::ostream& out, const CaseResult& result, const std::string& again) {
    const Finding& finding = result.finding;
    out << shownWordFor(finding.verdict) << "   " << result.tried.name << "\n";
    if (finding.verdict == Verdict::Failed) {
        printBelow(out, "done: " + finding.done);
        printBelow(out, "expected: " + finding.expected);
        printBelow(out, "came: " + finding.came);
    }
    for (const std::string& remark : finding.remarks) printBelow(out, remark);
    // In one piece, to be copied.
    if (finding.verdict == Verdict::Failed)
        out << std::string(kIndent, ' ') << "again: " << again << "\n";
}

void printSummary(std::ostream& out, const CheckSummary& summary) {
    out << "\n" << counted(summary.cases(), "case", "cases") << ": ";
    if (summary.failed > 0) out << summary.failed << " FAILED, ";
    out << summary.passed << " passed";
    if (summary.warnings > 0) out << ", " << counted(summary.warnings, "warning", "warnings");
    if (summary.skipped > 0) out << ", " << summary.skipped << " skipped";
    out << ".\n";
}

void printList(std::ostream& out, const std::vector<Case>& cases) {
    for (const Case& each : cases) {
        out << each.name << "\n" << wrapped(each.why, 4) << "\n";
    }
}

void printListAsJson(std::ostream& out, const std::vector<Case>& cases) {
    Json list = Json::array();
    for (const Case& each : cases) list.push_back({{"name", each.name}, {"why", each.why}});
    out << printed({{"cases", list}});
}

void printCheckAsJson(std::ostream& out, const CheckSetting& setting, const CheckSummary& summary,
                      const std::vector<CaseResult>& results,
                      const std::function<std::string(const Case&)>& again) {
    Json cases = Json::array();
    for (const CaseResult& result : results) {
        const Finding& finding = result.finding;
        Json object{{"name", result.tried.name},
                    {"verdict", wordFor(finding.verdict)},
                    {"seconds", result.seconds}};
        if (finding.verdict == Verdict::Failed) {
            object["done"] = finding.done;
            object["expected"] = finding.expected;
            object["came"] = finding.came;
            object["again"] = again(result.tried);
        }
        if (!finding.remarks.empty()) object["remarks"] = finding.remarks;
        cases.push_back(object);
    }
    out << printed({{"library", setting.library},
                    {"seed", setting.seed},
                    {"cases", cases},
                    {"passed", summary.passed},
                    {"warnings", summary.warnings},
                    {"failed", summary.failed},
                    {"skipped", summary.skipped},
                    {"ok", summary.isFit()}});
}

}  // namespace Tolvane::Tools
