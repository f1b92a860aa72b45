#include "tools/process/Limits.h"

#include <algorithm>
#include <fstream>
#include <limits>

#include <sys/resource.h>
#include <unistd.h>

namespace Tolvane::Tools {
namespace {

constexpr rlim_t kNoLimit = std::numeric_limits<rlim_t>::max();
static_assert(kNoLimit == RLIM_INFINITY);

rlim_t inherited(int resource) {
    rlimit limit{};
    return getrlimit(resource, &limit) == 0 ? limit.rlim_cur : kNoLimit;
}

// Of `all`, what is left when `used` is taken.
rlim_t left(rlim_t all, rlim_t used) {
    if (all == kNoLimit) return kNoLimit;
    return all > used ? all - used : 0;
}

// Of figures that are unlimited at 0.
template <typename Figure>
void lower(Figure& figure, rlim_t most) {
    if (most != kNoLimit && (figure == 0 || most < figure))
        figure = static_cast<Figure>(std::max<rlim_t>(most, 1));
}

}  // namespace

Limits withinInherited(Limits limits) {
    if (const auto memory = memoryNow()) {
        lower(limits.memory, left(inherited(RLIMIT_AS), memory->addresses));
        lower(limits.memory, left(inherited(RLIMIT_DATA), memory->data));
    }
    lower(limits.processorTime, inherited(RLIMIT_CPU));
    lower(limits.written, inherited(RLIMIT_FSIZE));
    return limits;
}

std::optional<MemoryInUse> memoryNow() {
    std::ifstream figures("/proc/self/statm");
    std::size_t addresses = 0, ignored = 0, data = 0;
    figures >> addresses >> ignored >> ignored >> ignored >> ignored >> data;
    if (!figures) return std::nullopt;
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    return MemoryInUse{addresses * page, data * page};
}

}  // namespace Tolvane::Tools
