#include "tools/check/Usage.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <limits>

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

std::ptrdiff_t growthOf(const std::function<void()>& round) {
    constexpr int kRounds = 12;
    round();
    std::ptrdiff_t least = std::numeric_limits<std::ptrdiff_t>::max();
    // The few freed blocks that an allocator keeps at hand of each size count as taken. They get
    // more for some rounds.
    for (int i = 0; i < kRounds && least > 0; ++i) {
        const std::size_t before = allocatedBytes();
        round();
        least = std::min(least, static_cast<std::ptrdiff_t>(allocatedBytes() - before));
    }
    return least;
}

}  // namespace Tolvane::Tools
