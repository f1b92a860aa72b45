// Tries cases on a translation library, each in a process of its own.
#pragma once

#include "tools/check/Case.h"
#include "tools/check/Trial.h"

#include <cstddef>
#include <functional>
#include <vector>

namespace Tolvane::Tools {

struct CaseResult {
    Case tried;
    Finding finding;
    double seconds;
};

// `tell` is called for each case once it and those before it have ended, in the order of `cases`;
// `wait` now and then in between, with the number of those that have ended. Up to `jobs` run at the
// same time. Throws Error if no process can be started, and Interrupted.
void checkLibrary(const CheckSetting& setting, const std::vector<Case>& cases, std::size_t jobs,
                  const std::function<void(const CaseResult&)>& tell,
                  const std::function<void(std::size_t ended)>& wait = {});

}  // namespace Tolvane::Tools
