// Makes text from files and from other people's libraries safe to print in one line of a terminal.
#pragma once

#include <string>
#include <string_view>

namespace Tolvane::Tools {

// Each run of blanks and of what a terminal would obey becomes one blank; those at both ends are
// dropped. A byte that is no UTF-8 becomes a replacement character.
std::string oneLine(std::string_view text);

// In quotes, and cut off where it is longer than a message can bear. UTF-8 stays UTF-8.
std::string inQuotes(std::string_view text);

// In quotes, however long: what an exception says often ends with the cause.
std::string inQuotesWhole(std::string_view text);

}  // namespace Tolvane::Tools
