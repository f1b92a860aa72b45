// Makes names from files safe to stand in markup, in whatever script they are written.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Tolvane::Tools {

// Text of valid XML, in UTF-8 whatever the bytes: those that are no UTF-8 become U+FFFD, control
// characters a blank, and what means something to markup is escaped. What takes more
// than `mostColumns`, as a terminal counts them, ends in "…".
std::string markup(std::string_view text, std::size_t mostColumns = 1000);

}  // namespace Tolvane::Tools
