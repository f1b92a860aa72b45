// How a child process ended.
#pragma once

#include "tools/process/Limits.h"
#include "tools/process/Place.h"
#include "tools/support/Error.h"

#include <optional>
#include <string>

namespace Tolvane::Tools {

struct Outcome {
    enum class End {
        Answered,        // with `answer`
        Failed,          // the work threw `error`
        Threw,           // some other exception, or ended by std::terminate, as `thrown` says
        Exited,          // by itself, with the status `code`, and without an answer
        Killed,          // by the signal `code`
        OutOfMemory,     // and so the work had no answer
        OutOfTime,       // of the processor
        Silent,          // without a sign of progress for too long
        WrittenTooMuch,  // a print or a file that is too long
        AnsweredTooMuch
    };

    End end = End::Exited;
    int code = 0;
    std::string answer = {};
    std::optional<Error> error = {};
    // As a predicate: "throws \"no such type\"".
    std::string thrown = {};
    // What it was at.
    Place place = {};
    // Those that it had.
    Limits limits = {};
};

// How it ended without an answer, as a predicate: "crashes (segmentation fault)".
std::string inWords(const Outcome& outcome);

}  // namespace Tolvane::Tools
