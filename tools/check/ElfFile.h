// What a shared library says of itself to the loader.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct ElfFile {
    // The symbols that it defines for others, without their versions.
    std::vector<std::string> exported;
    // Those that others must define.
    std::vector<std::string> wanted;
};

// Throws Error if the file is no ELF file.
ElfFile readElf(const std::string& path);

// The sanitizer that a library was built with, if this process lacks its runtime: the library
// cannot be loaded then, or ends the process. In words that say what to do.
std::optional<std::string> missingRuntime(const ElfFile& library);

}  // namespace Tolvane::Tools
