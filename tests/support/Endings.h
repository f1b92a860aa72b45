// How an operation ends where one of its steps goes wrong. Each step is tried in a child process,
// which it may end, and the test's own state stays as it was.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <vector>

namespace TestSupport {

enum class Ending {
    kReturns,
    kThrows,
    // By std::terminate, as where an exception may not pass.
    kTerminates,
    // In any other way.
    kCrashes
};

std::ostream& operator<<(std::ostream& out, Ending ending);

using Endings = std::vector<Ending>;

inline Endings times(std::size_t count, Ending ending) { return Endings(count, ending); }

// Carries out an operation and lets its n-th step, counted from 1, go wrong, or none for 0; tells
// whether it came to that step.
using Attempt = std::function<bool(std::uint64_t nth)>;

// How the attempts at the first, the second, ... the last step end. An operation that does not come
// back where nothing goes wrong has that ending alone.
Endings endingsOf(const Attempt& attempt);

// The same where it is the operation's allocations that fail.
Endings endingsWithoutMemory(const std::function<void()>& operation);

}  // namespace TestSupport
