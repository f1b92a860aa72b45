#include "tools/check/ElfFile.h"

#include "tools/process/FileDescriptor.h"
#include "tools/support/Error.h"

#include <algorithm>
#include <memory>

#include <dlfcn.h>
#include <fcntl.h>
#include <gelf.h>

namespace Tolvane::Tools {
namespace {

void addSymbols(Elf* elf, Elf_Scn* part, const GElf_Shdr& head, ElfFile& file) {
    Elf_Data* data = elf_getdata(part, nullptr);
    const std::size_t count = head.sh_entsize == 0 ? 0 : head.sh_size / head.sh_entsize;
    for (std::size_t i = 1; data && i < count; ++i) {
        GElf_Sym symbol;
        if (!gelf_getsym(data, static_cast<int>(i), &symbol)) continue;
        const char* name = elf_strptr(elf, head.sh_link, symbol.st_name);
        if (!name || GELF_ST_BIND(symbol.st_info) == STB_LOCAL) continue;
        if (symbol.st_shndx == SHN_UNDEF)
            file.wanted.emplace_back(name);
        else if (GELF_ST_VISIBILITY(symbol.st_other) == STV_DEFAULT ||
                 GELF_ST_VISIBILITY(symbol.st_other) == STV_PROTECTED)
            file.exported.emplace_back(name);
    }
}

}  // namespace

ElfFile readElf(const std::string& path) {
    elf_version(EV_CURRENT);
    const FileDescriptor descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC));
    const std::unique_ptr<Elf, int (*)(Elf*)> elf(
        elf_begin(descriptor.number(), ELF_C_READ, nullptr), elf_end);
    if (!elf || elf_kind(elf.get()) != ELF_K_ELF) throw Error(path + ": is no ELF file");

    ElfFile file;
    for (Elf_Scn* part = elf_nextscn(elf.get(), nullptr); part;
         part = elf_nextscn(elf.get(), part)) {
        GElf_Shdr head;
        if (gelf_getshdr(part, &head) && head.sh_type == SHT_DYNSYM)
            addSymbols(elf.get(), part, head, file);
    }
    return file;
}

std::optional<std::string> missingRuntime(const ElfFile& library) {
    struct Runtime {
        const char* name;
        const char* entry;
        const char* file;
    };
    constexpr Runtime kRuntimes[] = {{"ThreadSanitizer", "__tsan_init", "libtsan.so"},
                                     {"AddressSanitizer", "__asan_init", "libasan.so"}};
    for (const Runtime& runtime : kRuntimes) {
        const bool isWanted = std::find(library.wanted.begin(), library.wanted.end(),
                                        runtime.entry) != library.wanted.end();
        if (isWanted && !dlsym(RTLD_DEFAULT, runtime.entry))
            return std::string("it was built with ") + runtime.name +
                   ", whose runtime this process lacks; have it loaded first, as by"
                   " LD_PRELOAD=$(g++ -print-file-name=" +
                   runtime.file + ")";
    }
    return std::nullopt;
}

}  // namespace Tolvane::Tools
