// Prints to standard output, which may be a full disk.
#pragma once

#include <string>
#include <string_view>

namespace Tolvane::Tools {

// At once. Throws Error that names the cause if it cannot be done.
void print(std::string_view text);

// Throws the Error of a file, or of standard output, whose writing ended with this errno.
[[noreturn]] void failToWrite(const std::string& path, int error);

}  // namespace Tolvane::Tools
