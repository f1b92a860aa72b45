// Prints what is in a library: for a person a tree of each type's attributes, for a program one
// JSON object.
#pragma once

#include "tools/inspect/Inspection.h"

#include <iosfwd>
#include <string>

namespace Tolvane::Tools {

void printInspection(std::ostream& out, const Inspection& inspection);
void printInspectionAsJson(std::ostream& out, const Inspection& inspection);
// A line that says what failed; empty if nothing did.
std::string verdictOf(const Inspection& inspection);

}  // namespace Tolvane::Tools
