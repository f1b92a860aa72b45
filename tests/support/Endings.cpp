#include "tests/support/Endings.h"

#include "tests/support/AllocationFailure.h"

#include <cerrno>
#include <cstdlib>
#include <exception>
#include <optional>
#include <ostream>
#include <system_error>

#include <sys/wait.h>
#include <unistd.h>

namespace TestSupport {
namespace {

// How a child tells its parent what it came to.
constexpr int kStepNotReached = 10;
constexpr int kReturned = 11;
constexpr int kThrew = 12;
constexpr int kTerminated = 13;

[[noreturn]] void runAsChild(const Attempt& attempt, std::uint64_t nth) {
    std::set_terminate([] { std::_Exit(kTerminated); });
    try {
        std::_Exit(attempt(nth) ? kReturned : kStepNotReached);
    } catch (...) {
        std::_Exit(kThrew);
    }
}

int statusOf(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) == -1)
        if (errno != EINTR) throw std::system_error(errno, std::generic_category(), "waitpid");
    return status;
}

// Nothing where the operation came back without having reached the step.
std::optional<Ending> endingOf(const Attempt& attempt, std::uint64_t nth) {
    const pid_t child = ::fork();
    if (child == -1) throw std::system_error(errno, std::generic_category(), "fork");
    if (child == 0) runAsChild(attempt, nth);
    const int status = statusOf(child);
    switch (WIFEXITED(status) ? WEXITSTATUS(status) : 0) {
        case kStepNotReached:
            return std::nullopt;
        case kReturned:
            return Ending::kReturns;
        case kThrew:
            return Ending::kThrows;
        case kTerminated:
            return Ending::kTerminates;
        default:
            return Ending::kCrashes;
    }
}

}  // namespace

Endings endingsOf(const Attempt& attempt) {
    const Ending undisturbed = endingOf(attempt, 0).value_or(Ending::kReturns);
    // There would be no last step.
    if (undisturbed != Ending::kReturns) return {undisturbed};
    Endings endings;
    while (const std::optional<Ending> ending = endingOf(attempt, endings.size() + 1))
        endings.push_back(*ending);
    return endings;
}

Endings endingsWithoutMemory(const std::function<void()>& operation) {
    return endingsOf([&](std::uint64_t nth) {
        const AllocationFailure failure(nth);
        operation();
        return !failure.isPending();
    });
}

std::ostream& operator<<(std::ostream& out, Ending ending) {
    constexpr const char* kNames[] = {"returns", "throws", "terminates", "crashes"};
    return out << kNames[static_cast<int>(ending)];
}

}  // namespace TestSupport
