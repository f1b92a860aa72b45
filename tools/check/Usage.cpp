#include "tools/check/Usage.h"

#include <filesystem>
#include <iterator>

#include <malloc.h>

// There where a sanitizer keeps the heap.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace Tolvane::Tools {
namespace {

std::size_t entriesIn(const char* folder) {
    namespace fs = std::filesystem;
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

}  // namespace

std::size_t allocatedBytes() {
    if (__sanitizer_get_current_allocated_bytes) return __sanitizer_get_current_allocated_bytes();
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

// The folder itself is open while it is read, each time.
std::size_t openFiles() { return entriesIn("/proc/self/fd"); }

std::size_t threads() { return entriesIn("/proc/self/task"); }

}  // namespace Tolvane::Tools
