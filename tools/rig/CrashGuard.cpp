#include "tools/rig/CrashGuard.h"

#include "tools/support/OneLine.h"

#include <fcntl.h>
#include <unistd.h>

namespace Tolvane::Tools {
namespace {

constexpr std::size_t kStackSize = std::size_t{64} * 1024;

// Composed before the crash, because a signal handler must not allocate.
std::string s_line;
int s_standardError = -1;

extern "C" void tolvaneReportCrash(int) {
    [[maybe_unused]] const auto written = write(s_standardError, s_line.data(), s_line.size());
    _exit(2);
}

void silenceStandardError() {
    s_standardError = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0);
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (s_standardError >= 0 && nowhere >= 0) dup2(nowhere, STDERR_FILENO);
    if (nowhere >= 0) close(nowhere);
}

void restoreStandardError() {
    if (s_standardError < 0) return;
    dup2(s_standardError, STDERR_FILENO);
    close(s_standardError);
}

}  // namespace

CrashGuard::CrashGuard(const std::string& message) : m_stack(kStackSize) {
    s_line = "tolvane: " + oneLine(message) + "\n";
    silenceStandardError();

    stack_t stack{};
    stack.ss_sp = m_stack.data();
    stack.ss_size = m_stack.size();
    sigaltstack(&stack, &m_formerStack);

    struct sigaction action {};
    action.sa_handler = tolvaneReportCrash;
    action.sa_flags = SA_ONSTACK;
    for (std::size_t i = 0; i < kSignals.size(); ++i)
        sigaction(kSignals[i], &action, &m_formerActions[i]);
}

CrashGuard::~CrashGuard() {
    for (std::size_t i = 0; i < kSignals.size(); ++i)
        sigaction(kSignals[i], &m_formerActions[i], nullptr);
    sigaltstack(&m_formerStack, nullptr);
    restoreStandardError();
}

}  // namespace Tolvane::Tools
