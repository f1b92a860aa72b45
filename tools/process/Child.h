// Work in a process of its own, which may crash, hang, print, or take whatever it wants: nothing of
// that reaches this process, which gets the work's answer or learns how the work ended instead.
//
// The process is a fork of this one, so the work sees all that this one has in memory, as it was.
// It has nothing to read on standard input, and its prints are kept apart. It leaves no core file,
// and does not outlive this process. Whatever it starts in its process group ends with it, unless
// it is this process that is killed. Work that has children of its own notes interruptions (see
// Interruption.h), so that it ends them when it is ended itself.
//
// Its limits come on top of what this process has already, so they mean the same where a sanitizer
// has reserved terabytes, and are never above what this process may take itself. [one thread, and
// no other may run]
//
// No destructor of this process runs in the child, and nothing of its buffers is written twice.
#pragma once

#include "tools/process/Capture.h"
#include "tools/process/ChildSide.h"
#include "tools/process/FileDescriptor.h"
#include "tools/process/Limits.h"
#include "tools/process/Outcome.h"
#include "tools/process/SharedBlock.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace Tolvane::Tools {

// Runs in the child. What it returns is the answer. What it throws ends the child: an Error comes
// back as it is, of other exceptions the text.
using Work = std::function<std::string(ChildSide& self)>;

class Child {
public:
    // Throws Error if no process can be started.
    Child(const Work& work, const Limits& limits);
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    // Ends the process if it has not ended: by SIGTERM or, if it does not obey, by SIGKILL.
    ~Child();

    // Takes what has come from the process, and ends it if it has reached a limit. True once it has
    // ended. Does not wait.
    bool advance();
    // How much of the work is done. `total` is 0 as long as that is not known, `done` at most
    // `total`.
    std::size_t done() const noexcept;
    std::size_t total() const noexcept;

    // Once it has ended.
    const Outcome& outcome() const noexcept { return m_outcome; }

    // Waits until one of them may have something new, but not for long. Throws Interrupted.
    static void wait(const std::vector<Child*>& children);

private:
    using Clock = std::chrono::steady_clock;

    static void dropOthers() noexcept;
    void takeAnswer();
    bool hasStalled();
    void end(Outcome::End end);
    void reap(int options);
    void notePlace();
    void judge(int status, double processorTime);
    Outcome::End endingBySignal(int signal, double processorTime) const;
    bool takeMessage();

    Limits m_limits;
    SharedMemory m_shared;
    Capture m_capture;
    FileDescriptor m_pipe;
    pid_t m_process = -1;
    std::string m_received;
    std::uint64_t m_moves = 0;
    Clock::time_point m_lastMove = Clock::now();
    bool m_ended = false;
    bool m_isDecided = false;
    Outcome m_outcome;
};

// Somebody who is called now and then while a child runs.
using Watch = std::function<void(const Child&)>;

// Runs `work` to its end. Throws Error if no process can
// be started, and Interrupted.
Outcome runInChild(const Work& work, const Limits& limits, const Watch& watch = {});

}  // namespace Tolvane::Tools
