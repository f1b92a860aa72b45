// Prints what came of a check: a line for each case as it ends, and a summary; or one JSON object.
#pragma once

#include "tools/check/CheckLibrary.h"

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace Tolvane::Tools {

// How often each verdict came.
struct CheckSummary {
    std::size_t passed = 0;
    std::size_t warnings = 0;
    std::size_t failed = 0;
    std::size_t skipped = 0;
    // Of those that were skipped, because the library does not load.
    std::size_t unloaded = 0;

    void count(const Finding& finding);
    bool isFit() const { return failed == 0 && unloaded == 0; }
    std::size_t cases() const { return passed + warnings + failed + skipped; }
};

// A line, and below it what there is to say. `again` is the command that repeats the case.
void printCase(std::ostream& out, const CaseResult& result, const std::string& again);
void printSummary(std::ostream& out, const CheckSummary& summary);
// Each case with its sentence.
void printList(std::ostream& out, const std::vector<Case>& cases);

void printListAsJson(std::ostream& out, const std::vector<Case>& cases);
// `results` are those to be told of, `summary` is that of all cases.
void printCheckAsJson(std::ostream& out, const CheckSetting& setting, const CheckSummary& summary,
                      const std::vector<CaseResult>& results,
                      const std::function<std::string(const Case&)>& again);

}  // namespace Tolvane::Tools
