#include "tools/process/SharedBlock.h"

#include "tools/support/Error.h"

#include <new>

#include <sys/mman.h>

namespace Tolvane::Tools {

SharedMemory::SharedMemory() {
    void* const memory = mmap(nullptr, sizeof(SharedBlock), PROT_READ | PROT_WRITE,
                              MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw Error("no memory is left for another process");
    m_block = new (memory) SharedBlock{};
}

SharedMemory::~SharedMemory() { munmap(m_block, sizeof(SharedBlock)); }

}  // namespace Tolvane::Tools
