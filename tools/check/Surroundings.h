// What a library shares with everything else in its process: each as the names and values of its
// parts, to be compared before and after.
#pragma once

#include <map>
#include <string>

namespace Tolvane::Tools {

using Surroundings = std::map<std::string, std::string>;

// Of the process, or of the thread that asks where threads have their own.
Surroundings environmentVariables();
Surroundings currentFolderAndFileMask();
Surroundings localeSettings();
Surroundings signalSettings();
Surroundings floatingPointModes();

// The first part that differs, such as `LANG, which was "C", is not set`; empty if none does.
std::string firstChange(const Surroundings& before, const Surroundings& after);

}  // namespace Tolvane::Tools
