// Has a translation library asked something in a process of its own, for commands that print one
// answer.
#pragma once

#include "tools/process/ChildSide.h"
#include "tools/process/Outcome.h"
#include "tools/support/Error.h"

#include <TavrikGraph/Executor/TypeTranslation.h>

#include <functional>
#include <optional>
#include <string>

namespace Tolvane::Tools {

struct LibraryAnswer {
    // Whether all that was asked for was done.
    bool ok = true;
    // What is printed on standard output.
    std::string text;
    // Whether that is a JSON object, which then says too what the library does that it should not.
    bool isJson = false;
};

// Runs in the process of the library, which is loaded.
using LibraryQuestion =
    std::function<LibraryAnswer(TavrikGraph::Executor::TypeTranslation&, ChildSide& self)>;

// Prints the answer, and returns whether all was done and the library did nothing that it should
// not. Of the limits, processor time is that of a reader and does not hold here. Throws what the
// question throws, Error if the library cannot be loaded or brings its process down, and
// Interrupted.
bool askLibrary(const std::string& path, const Limits& limits, const LibraryQuestion& question);

// A line that names the library and says what it was doing when it brought its process down. One
// that goes down as it is loaded has not been tried at all. What the program itself takes, of
// memory and of time, for the data that it makes (at the stage of usage) and for its report, is not
// put down to the library.
Error downfall(const std::string& path, const Outcome& outcome);

// What the library has done that it should not; nothing if it has behaved.
std::optional<Error> misdeedOf(const std::string& path, const ChildSide& self);

}  // namespace Tolvane::Tools
