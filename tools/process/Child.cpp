#include "tools/process/Child.h"

#include "tools/process/ChildMain.h"
#include "tools/process/ErrorMessage.h"
#include "tools/process/Interruption.h"
#include "tools/process/Message.h"
#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>

namespace Tolvane::Tools {
namespace {

// For one that has children of its own, and those a process group that nobody else knows.
constexpr std::chrono::milliseconds kGrace(500);

// Large, so that the two processes take turns less often. More than that may not be allowed.
constexpr int kPipeSize = 1 << 20;

constexpr int kTick = 50;         // milliseconds
constexpr int kShortestTick = 1;  // between the end of an answer and that of the process

// Those of this process, which each later one has in its memory, with their files.
std::vector<Child*> s_all;

Error noProcess() {
    return Error(std::string("no process can be started: ") + std::strerror(errno));
}

std::string thrown(const SharedBlock& block) {
    if (block.ending == SharedBlock::kThrew)
        return "throws " + inQuotesWhole(oneLine(stored(block.thrown)));
    return block.ending == SharedBlock::kTerminated ? "calls std::terminate"
                                                    : "throws something that is no exception";
}

double seconds(const rusage& usage) {
    const auto in = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return in(usage.ru_utime) + in(usage.ru_stime);
}

}  // namespace

Child::Child(const Work& work, const Limits& limits) : m_limits(withinInherited(limits)) {
    m_outcome.limits = m_limits;
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw noProcess();
    m_pipe = FileDescriptor(ends[0]);
    const FileDescriptor childsEnd(ends[1]);
    fcntl(m_pipe.number(), F_SETFL, O_NONBLOCK);
    fcntl(m_pipe.number(), F_SETPIPE_SZ, kPipeSize);

    // What is still in a buffer would be written by both processes.
    std::cout.flush();
    std::fflush(nullptr);
    const pid_t parent = getpid();
    m_process = fork();
    if (m_process < 0) throw noProcess();
    if (m_process == 0) {
        dropOthers();
        liveAsChild(work, {m_limits, m_capture, m_shared.block(), childsEnd.number(), parent});
    }
    // Both sides do that, for whichever comes first.
    setpgid(m_process, m_process);
    s_all.push_back(this);
}

Child::~Child() {
    if (!m_ended) end(Outcome::End::Killed);
    s_all.erase(std::remove(s_all.begin(), s_all.end(), this), s_all.end());
}

// In a new process, which would be short of descriptors where there are many others.
void Child::dropOthers() noexcept {
    for (Child* other : s_all) {
        other->m_pipe.close();
        other->m_capture.close();
    }
    s_all.clear();
}

bool Child::advance() {
    if (m_ended) return true;
    takeAnswer();
    reap(WEXITED | WNOHANG);
    if (m_ended) return true;
    if (hasStalled()) end(Outcome::End::Silent);
    return m_ended;
}

void Child::takeAnswer() {
    char bytes[std::size_t{64} * 1024];
    while (m_pipe.number() >= 0) {
        const ssize_t count = read(m_pipe.number(), bytes, sizeof bytes);
        if (count < 0) return;
        if (count == 0) return m_pipe.close();
        m_received.append(bytes, static_cast<std::size_t>(count));
        m_lastMove = Clock::now();
        if (m_received.size() > m_limits.answer + sizeof(AnswerHead))
            return end(Outcome::End::AnsweredTooMuch);
    }
}

bool Child::hasStalled() {
    const std::uint64_t moves = m_shared.block().moves.load(std::memory_order_relaxed);
    const Clock::time_point now = Clock::now();
    if (moves != m_moves) m_lastMove = now;
    m_moves = moves;
    return now - m_lastMove > std::chrono::seconds(m_limits.silence);
}

void Child::end(Outcome::End end) {
    m_outcome.end = end;
    m_isDecided = true;
    if (m_ended) return;
    kill(m_process, SIGTERM);
    for (auto left = kGrace; !m_ended && left.count() > 0; --left) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        reap(WEXITED | WNOHANG);
    }
    if (m_ended) return;
    kill(m_process, SIGKILL);
    reap(WEXITED);
}

// The process is looked at before it is buried, because only until then its group has its number.
void Child::reap(int options) {
    siginfo_t information{};
    int result = 0;
    do result = waitid(P_PID, static_cast<id_t>(m_process), &information, options | WNOWAIT);
    while (result != 0 && errno == EINTR);
    int status = 0;
    rusage usage{};
    // Where the system has buried it, as it does if SIGCHLD is ignored, its number may be another's
    // by now, and all that is left of it is what it has sent.
    if (result == 0) {
        if (information.si_pid == 0) return;
        kill(-m_process, SIGKILL);
        while (wait4(m_process, &status, 0, &usage) < 0 && errno == EINTR) continue;
    }
    m_ended = true;
    takeAnswer();
    notePlace();
    if (!m_isDecided) judge(status, seconds(usage));
}

void Child::notePlace() {
    const SharedBlock& block = m_shared.block();
    m_outcome.place = {static_cast<Stage>(block.stage), std::string(stored(block.port)), {}};
    if (block.hasFrame != 0) m_outcome.place.frame = block.frame;
}

void Child::judge(int status, double processorTime) {
    using End = Outcome::End;
    const SharedBlock& block = m_shared.block();
    const bool exited = WIFEXITED(status);
    m_outcome.code = exited ? WEXITSTATUS(status) : WTERMSIG(status);
    if (exited && m_outcome.code == 0 && takeMessage()) {
        if (m_outcome.end == End::Answered) return;
    } else if (block.ending != SharedBlock::kNone) {
        m_outcome.end = End::Threw;
        m_outcome.thrown = thrown(block);
    } else if (exited) {
        m_outcome.end = End::Exited;
    } else {
        m_outcome.end = endingBySignal(m_outcome.code, processorTime);
    }
    // Whatever followed, that was the cause.
    if (block.memoryRanOut != 0) m_outcome.end = End::OutOfMemory;
}

Outcome::End Child::endingBySignal(int signal, double processorTime) const {
    if (signal == SIGXFSZ) return Outcome::End::WrittenTooMuch;
    const bool outOfTime = m_limits.processorTime != 0 && processorTime >= m_limits.processorTime;
    if (signal == SIGXCPU || (signal == SIGKILL && outOfTime)) return Outcome::End::OutOfTime;
    return Outcome::End::Killed;
}

// False if the message is not whole.
bool Child::takeMessage() {
    AnswerHead head{};
    if (m_received.size() < sizeof head) return false;
    m_received.copy(reinterpret_cast<char*>(&head), sizeof head);
    m_received.erase(0, sizeof head);
    if (m_received.size() != head.size) return false;
    m_outcome.end =
        head.kind == AnswerHead::kAnswer ? Outcome::End::Answered : Outcome::End::Failed;
    try {
        if (head.kind != AnswerHead::kAnswer) m_outcome.error = errorOf(m_received);
    } catch (const BadMessage&) {
        return false;
    }
    m_outcome.answer = std::move(m_received);
    return true;
}

std::size_t Child::total() const noexcept {
    return m_shared.block().total.load(std::memory_order_relaxed);
}

std::size_t Child::done() const noexcept {
    return std::min<std::size_t>(m_shared.block().done.load(std::memory_order_relaxed), total());
}

// An answer wakes this up, and so does the end of a process, which closes its end of the pipe. Only
// what is seen in no file, such as a limit that is reached, is found by looking now and then.
void Child::wait(const std::vector<Child*>& children) {
    throwIfInterrupted();
    std::vector<pollfd> files;
    int tick = kTick;
    for (const Child* child : children) {
        if (child->m_pipe.number() >= 0)
            files.push_back({child->m_pipe.number(), POLLIN, 0});
        else
            tick = kShortestTick;
    }
    poll(files.data(), files.size(), tick);
    throwIfInterrupted();
}

Outcome runInChild(const Work& work, const Limits& limits, const Watch& watch) {
    Child child(work, limits);
    while (!child.advance()) {
        if (watch) watch(child);
        Child::wait({&child});
    }
    return child.outcome();
}

}  // namespace Tolvane::Tools
