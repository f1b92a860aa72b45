// The program's own operator new would not see what a library takes by malloc, or by an operator
// new that is linked into it; and a malloc of the program's own would stand in front of any
// sanitizer's, in every command. So, in the process of one case alone, all places through which
// loaded code calls malloc are led to functions here, which go on to wherever those places led. A
// sanitizer, whose operator new does not call malloc, tells of allocations itself.

#include "tools/check/Allocations.h"

#include "tools/support/Error.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include <dlfcn.h>
#include <elf.h>
#include <link.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

namespace Tolvane::Tools {
namespace {

std::atomic<std::uint64_t> s_count{0};
std::atomic<std::uint64_t> s_bytes{0};

void note(std::size_t bytes) noexcept {
    s_count.fetch_add(1, std::memory_order_relaxed);
    s_bytes.fetch_add(bytes, std::memory_order_relaxed);
}

// Where the places led that lead here now.
decltype(&std::malloc) s_malloc;
decltype(&std::calloc) s_calloc;
decltype(&std::realloc) s_realloc;
decltype(&aligned_alloc) s_alignedAlloc;
decltype(&memalign) s_memalign;
decltype(&posix_memalign) s_posixMemalign;

void* countedMalloc(std::size_t size) noexcept {
    note(size);
    return s_malloc(size);
}

void* countedCalloc(std::size_t count, std::size_t size) noexcept {
    note(count * size);
    return s_calloc(count, size);
}

void* countedRealloc(void* block, std::size_t size) noexcept {
    note(size);
    return s_realloc(block, size);
}

void* countedAlignedAlloc(std::size_t alignment, std::size_t size) noexcept {
    note(size);
    return s_alignedAlloc(alignment, size);
}

void* countedMemalign(std::size_t alignment, std::size_t size) noexcept {
    note(size);
    return s_memalign(alignment, size);
}

int countedPosixMemalign(void** block, std::size_t alignment, std::size_t size) noexcept {
    note(size);
    return s_posixMemalign(block, alignment, size);
}

struct Function {
    const char* name;
    void* former;
    void* counted;
};

template <typename Signature>
Function lead(const char* name, Signature*& former, Signature* counted) {
    void* address = dlsym(RTLD_DEFAULT, name);
    former = reinterpret_cast<Signature*>(address);
    return {name, address, reinterpret_cast<void*>(counted)};
}

struct Functions {
    Function all[6] = {lead("malloc", s_malloc, countedMalloc),
                       lead("calloc", s_calloc, countedCalloc),
                       lead("realloc", s_realloc, countedRealloc),
                       lead("aligned_alloc", s_alignedAlloc, countedAlignedAlloc),
                       lead("memalign", s_memalign, countedMemalign),
                       lead("posix_memalign", s_posixMemalign, countedPosixMemalign)};

    const Function* find(const char* name) const {
        for (const Function& each : all)
            if (std::strcmp(each.name, name) == 0) return &each;
        return nullptr;
    }
};

// What the loader knows of one loaded object: addresses as numbers.
// NOLINTBEGIN(performance-no-int-to-ptr)
class LoadedObject {
public:
    explicit LoadedObject(const dl_phdr_info& info) : m_base(info.dlpi_addr) {
        for (int i = 0; i < info.dlpi_phnum; ++i)
            if (info.dlpi_phdr[i].p_type == PT_DYNAMIC)
                m_dynamic = reinterpret_cast<const ElfW(Dyn)*>(m_base + info.dlpi_phdr[i].p_vaddr);
    }

    void leadTo(const Functions& functions) const {
        if (!m_dynamic) return;
        leadTo(functions, DT_JMPREL, DT_PLTRELSZ, true);
        leadTo(functions, DT_RELA, DT_RELASZ, false);
    }

private:
    // A place for calls may not lead anywhere yet, if nobody has called; any other may have been
    // made for something else than the address alone.
    void leadTo(const Functions& functions, ElfW(Sxword) table, ElfW(Sxword) size,
                bool isForCalls) const {
        const auto* symbols = reinterpret_cast<const ElfW(Sym)*>(address(DT_SYMTAB));
        const auto* names = reinterpret_cast<const char*>(address(DT_STRTAB));
        const auto* places = reinterpret_cast<const ElfW(Rela)*>(address(table));
        if (!symbols || !names || !places) return;
        const std::size_t count = value(size) / sizeof *places;
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t symbol = ELF64_R_SYM(places[i].r_info);
            const Function* function =
                symbol == 0 ? nullptr : functions.find(names + symbols[symbol].st_name);
            auto** place = reinterpret_cast<void**>(m_base + places[i].r_offset);
            if (function && (isForCalls || *place == function->former))
                replace(place, function->counted);
        }
    }

    // The loader has made places read-only once they were filled.
    static void replace(void** place, void* address) {
        const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
        auto* begin =
            reinterpret_cast<void*>(reinterpret_cast<std::uintptr_t>(place) & ~(page - 1));
        if (mprotect(begin, page, PROT_READ | PROT_WRITE) == 0) *place = address;
    }

    ElfW(Xword) value(ElfW(Sxword) tag) const {
        for (const ElfW(Dyn)* entry = m_dynamic; entry->d_tag != DT_NULL; ++entry)
            if (entry->d_tag == tag) return entry->d_un.d_val;
        return 0;
    }

    // The loader turns offsets into addresses, but not those of the kernel's own library.
    ElfW(Addr) address(ElfW(Sxword) tag) const {
        const ElfW(Addr) found = value(tag);
        return found == 0 || found >= m_base ? found : m_base + found;
    }

    ElfW(Addr) m_base;
    const ElfW(Dyn) * m_dynamic = nullptr;
};
// NOLINTEND(performance-no-int-to-ptr)

int leadObject(dl_phdr_info* info, std::size_t, void* functions) {
    LoadedObject(*info).leadTo(*static_cast<const Functions*>(functions));
    return 0;
}

using Hooks = int(void (*)(const volatile void*, std::size_t), void (*)(const volatile void*));

bool letSanitizerTell() {
    auto* install =
        reinterpret_cast<Hooks*>(dlsym(RTLD_DEFAULT, "__sanitizer_install_malloc_and_free_hooks"));
    if (!install) return false;
    const int installed = install([](const volatile void*, std::size_t size) { note(size); },
                                  [](const volatile void*) {});
    if (installed == 0) throw Error("the sanitizer does not tell of allocations");
    return true;
}

}  // namespace

void countAllocations() {
    if (letSanitizerTell()) return;
    Functions functions;
    for (const Function& function : functions.all)
        if (!function.former) throw Error(std::string("there is no ") + function.name);
    dl_iterate_phdr(leadObject, &functions);
    // What is not counted is not told from what is not taken.
    const std::uint64_t before = s_count;
    void* volatile block = ::operator new(1);
    ::operator delete(block);
    if (s_count == before) throw Error("calls of malloc cannot be led elsewhere");
}

Allocations allocations() noexcept { return {s_count, s_bytes}; }

}  // namespace Tolvane::Tools
