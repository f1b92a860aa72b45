#include "tools/process/ChildMain.h"

#include "tools/process/ErrorMessage.h"
#include "tools/process/Interruption.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <new>

#include <sys/prctl.h>
#include <sys/resource.h>

namespace Tolvane::Tools {
namespace {

// Where the handlers below leave what they know.
SharedBlock* s_block = nullptr;

void noteThatMemoryRanOut() {
    s_block->memoryRanOut = 1;
    throw std::bad_alloc();
}

// Takes no memory, for there may be none left.
void noteException(const std::exception& exception) noexcept {
    s_block->ending = SharedBlock::kThrew;
    store(s_block->thrown, exception.what());
}

// An exception that cannot leave a function is one of somebody's, so its text is worth telling.
[[noreturn]] void noteExceptionAndAbort() noexcept {
    s_block->ending = SharedBlock::kTerminated;
    try {
        if (std::current_exception()) std::rethrow_exception(std::current_exception());
    } catch (const std::exception& exception) {
        noteException(exception);
    } catch (...) {
        s_block->ending = SharedBlock::kThrewNoException;
    }
    std::abort();
}

void limit(int resource, rlim_t most, rlim_t hardMost) {
    rlimit former{};
    getrlimit(resource, &former);
    const rlimit limits{std::min(most, former.rlim_max), std::min(hardMost, former.rlim_max)};
    setrlimit(resource, &limits);
}

// What the process has now counts as nothing, for a sanitizer reserves more than any limit. Counted
// are both its addresses and, of those, what it can write to: a sanitizer turns the former into the
// latter.
void limitMemory(std::size_t most) {
    if (most == 0) return;
    const auto now = memoryNow();
    if (!now) return;
    limit(RLIMIT_AS, now->addresses + most, now->addresses + most);
    limit(RLIMIT_DATA, now->data + most, now->data + most);
}

void setLimits(const Limits& limits) {
    limit(RLIMIT_CORE, 0, 0);
    limit(RLIMIT_FSIZE, limits.written, limits.written);
    // Who ignores the signal of the first limit does not survive the second.
    if (limits.processorTime != 0)
        limit(RLIMIT_CPU, limits.processorTime, limits.processorTime + 1);
    limitMemory(limits.memory);
}

void detachFromParent(const ChildSetting& setting) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != setting.parent) _exit(2);
    setpgid(0, 0);
    forgetInterruptions();
    std::signal(SIGPIPE, SIG_DFL);
    std::signal(SIGXFSZ, SIG_DFL);
}

void send(int pipe, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = write(pipe, bytes.data(), bytes.size());
        if (sent < 0 && errno == EINTR) continue;
        if (sent < 0) _exit(2);
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

void send(int pipe, AnswerHead::Kind kind, const std::string& body) {
    const AnswerHead head{kind, body.size()};
    send(pipe, {reinterpret_cast<const char*>(&head), sizeof head});
    send(pipe, body);
}

}  // namespace

void liveAsChild(const Work& work, const ChildSetting& setting) noexcept {
    detachFromParent(setting);
    setting.capture.takeOver();
    s_block = &setting.block;
    std::set_terminate(noteExceptionAndAbort);
    std::set_new_handler(noteThatMemoryRanOut);
    setLimits(setting.limits);
    try {
        ChildSide self(setting.block, setting.capture);
        send(setting.answer, AnswerHead::kAnswer, work(self));
    } catch (const Error& error) {
        send(setting.answer, AnswerHead::kError, messageOf(error));
    } catch (const Interrupted& interrupted) {
        endBy(interrupted.signal);
    } catch (const std::exception& exception) {
        noteException(exception);
    } catch (...) {
        s_block->ending = SharedBlock::kThrewNoException;
    }
    _exit(0);
}

}  // namespace Tolvane::Tools
