// What a shared library says of itself to the loader.
#pragma once

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

}  // namespace Tolvane::Tools
