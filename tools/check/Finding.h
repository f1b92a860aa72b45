// What came of trying a case.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Tolvane::Tools {

struct Finding {
    enum class Verdict { Passed, Warning, Failed, Skipped };

    Verdict verdict = Verdict::Passed;
    // Of a failure: what was done with the library, what was expected of it, and what came.
    std::string done = {};
    std::string expected = {};
    std::string came = {};
    // Why a case was skipped, what is legal, but will hurt, or what is just worth telling. What was
    // found before a failure stays beside it.
    std::vector<std::string> remarks = {};
    // Skipped because the library does not load.
    bool isUnloaded = false;
};

// "passed", "warning", "failed" or "skipped".
const char* wordFor(Finding::Verdict verdict) noexcept;

// As bytes, for the way from the process of a case, and back. What is no finding, for the process
// may have sent anything, throws Error.
std::string messageOf(const Finding& finding);
Finding findingOf(std::string_view bytes);

}  // namespace Tolvane::Tools
