#include "tools/node/LibraryFile.h"

#include "tools/support/Error.h"
#include "tools/support/ReadableFile.h"

#include <cstring>
#include <filesystem>
#include <fstream>

#include <elf.h>

namespace Tolvane::Tools {
namespace {

// Linkers put the table of sections last, so it is missing where anything is. Whatever has no such
// table, or is no library at all, is for the loader to judge.
bool isCutOff(const std::string& path) {
    Elf64_Ehdr head{};
    std::ifstream file(path, std::ios::binary);
    if (!file.read(reinterpret_cast<char*>(&head), sizeof head)) return false;
    if (std::memcmp(head.e_ident, ELFMAG, SELFMAG) != 0) return false;
    if (head.e_ident[EI_CLASS] != ELFCLASS64) return false;
    const std::uintmax_t sizeOfTable = std::uintmax_t{head.e_shnum} * head.e_shentsize;
    const std::uintmax_t size = std::filesystem::file_size(path);
    return head.e_shoff > size || size - head.e_shoff < sizeOfTable;
}

}  // namespace

void refuseNoLibrary(const std::string& path) {
    during(Stage::Loading, path, [&] {
        refuseUnreadable(path);
        if (isCutOff(path)) throw Error(path + ": cannot be loaded as a library: it is cut off");
    });
}

}  // namespace Tolvane::Tools
