#include "tools/CrashGuard.h"

#include "tools/OneLine.h"

#include <unistd.h>

namespace Tolvane {
namespace {

constexpr std::size_t kStackSize = 64 * 1024;

// Made before the crash: a handler may not allocate.
std::string s_line;

extern "C" void tolvaneReportCrash(int) {
    [[maybe_unused]] const auto written = write(STDERR_FILENO, s_line.data(), s_line.size());
    _exit(2);
}

}  // namespace

CrashGuard::CrashGuard(const std::string& message) : m_stack(kStackSize) {
    s_line = "tolvane: " + oneLine(message) + "\n";

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
}

}  // namespace Tolvane
