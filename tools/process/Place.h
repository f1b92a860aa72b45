// Where in its work a child process is.
#pragma once

#include "tools/support/Stage.h"

#include <cstddef>
#include <optional>
#include <string>

namespace Tolvane::Tools {

struct Place {
    Stage stage = Stage::Other;
    // Empty, or that of the host node that a translation library is dealing with.
    std::string port = {};
    std::optional<std::size_t> frame = {};
};

// As the end of a sentence about a translation library: "while port inPins is evaluated in frame
// 3".
std::string inWords(const Place& place);

}  // namespace Tolvane::Tools
