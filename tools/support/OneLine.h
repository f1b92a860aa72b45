// Text from files and from other people's libraries, made fit to stand in one line of a terminal.
#pragma once

#include <string>
#include <string_view>

namespace Tolvane::Tools {

// Each run of control characters and blanks becomes one blank, those at the ends none.
std::string oneLine(std::string_view text);

}  // namespace Tolvane::Tools
