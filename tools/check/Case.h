// The cases that a translation library is checked with. Each is one rule of what the framework and
// the host expect of a library.
#pragma once

#include <string>
#include <vector>

namespace Tolvane::Tools {

class Trial;

struct Case {
    // Of the form "group/rule". It never changes, because people choose cases by it.
    const char* name;
    // What comes of breaking the rule, in one sentence.
    const char* why;
    // Returns if the library keeps the rule; else see Trial.
    void (*run)(Trial& trial);
};

// One function for each file of cases.
std::vector<Case> loadingCases();
std::vector<Case> objectCases();
std::vector<Case> portCases();
std::vector<Case> valueCases();
std::vector<Case> heldValueCases();
std::vector<Case> failingReadCases();
std::vector<Case> failingWriteCases();
std::vector<Case> failingPortCases();
std::vector<Case> failingHostCases();
std::vector<Case> threadCases();
std::vector<Case> thriftCases();
std::vector<Case> hygieneCases();

// All of them, in the order in which they are tried.
std::vector<Case> allCases();

// Those whose name has a part that matches `regex`, of the ECMAScript kind. Throws Error if that is
// no regular expression, or none matches.
std::vector<Case> chooseCases(const std::string& regex);

}  // namespace Tolvane::Tools
