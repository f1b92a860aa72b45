// Prints the values of an attribute: for a person a tree, of long arrays the beginning; for a
// program one JSON object with all.
#pragma once

#include "tools/inspect/FindData.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct ValueReport {
    std::string library;
    // What was evaluated: a rig's file and frame.
    std::string data;
    std::string typeName;
    // The part of the port that is shown; all of it if empty.
    std::string path;
    // Whether the value was read, and then written.
    bool wasRead = false;
    bool wasWritten = false;
    // What the host displayed.
    std::vector<std::string> messages = {};

    bool ok() const { return wasRead && wasWritten; }
};

void printValues(std::ostream& out, const ValueReport& report, const FoundData& found);
void printValuesAsJson(std::ostream& out, const ValueReport& report, const FoundData& found);
// A line that says what failed; empty if nothing did.
std::string verdictOf(const ValueReport& report);

}  // namespace Tolvane::Tools
