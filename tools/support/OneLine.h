// Makes text from files and from other people's libraries safe to print in one line of a terminal.
#pragma once

#include <string>
#include <string_view>

namespace Tolvane::Tools {

// Each run of control characters and blanks becomes one blank; those at both ends are dropped.
std::string oneLine(std::string_view text);

// In quotes, and cut off where it is longer than a message can bear. UTF-8 stays UTF-8.
std::string inQuotes(std::string_view text);

}  // namespace Tolvane::Tools
