// Ctrl-C, and the other signals by which somebody ends the program, while there is something to
// clean up: children that run, a file that is half written, a progress bar.
#pragma once

namespace Tolvane::Tools {

// Thrown for such a signal. No error: whoever catches it cleans up and ends by the signal.
struct Interrupted {
    int signal;
};

// While a guard lives, such a signal does no more than to be noted, for `throwIfInterrupted` to
// find. A signal that is ignored stays ignored. At the end of the guard a signal that nobody has
// found takes its usual course. At most one guard may live at a time in a process.
class InterruptionGuard {
public:
    InterruptionGuard();
    InterruptionGuard(const InterruptionGuard&) = delete;
    InterruptionGuard& operator=(const InterruptionGuard&) = delete;
    ~InterruptionGuard();
};

// Throws Interrupted if such a signal has come under the guard.
void throwIfInterrupted();

// In a child process: such signals take their usual course there.
void forgetInterruptions() noexcept;

// Ends the process by the signal, as whoever has started it expects.
[[noreturn]] void endBy(int signal);

}  // namespace Tolvane::Tools
