// Which build of the plugin this is, and the one line that says so on standard error while the
// library is loaded, if the environment asks for it with QUELMAR_DUMP_VERSION_INFO. [any thread]
#pragma once

#include <string>

namespace Rigging::Module {

const char* productName();
const char* branchName();
// The full identifier, forty lowercase hexadecimal digits.
const char* commitText();
// When this commit was first configured for building, such as "Fri 11/20/2026, 202611202332", in
// UTC.
const char* buildDateStamp();

// The four numbers of the version, joined by ".".
std::string versionNumberString();
// All of the above in the form in which the line shows it.
std::string buildVersionString();

// Whether the variable is there and begins with a number other than 0.
bool environmentFlag(const char* variable);

// Prints the line if the environment asks for it and there is a standard error to print on.
// Returns whether it did.
int dumpVersionIfRequested();

// What `dumpVersionIfRequested` returned while the library was loaded.
extern const bool versionDumpEnabled;

}  // namespace Rigging::Module
