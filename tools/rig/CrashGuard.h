// Third-party readers of rig files crash on some damaged files, and print messages of their own.
// While a guard lives, a crash of the process ends like any other unreadable file: with one line on
// standard error and exit status 2. Nothing else is printed to standard error meanwhile. At most
// one guard may live at a time.
#pragma once

#include <array>
#include <csignal>
#include <string>
#include <vector>

namespace Tolvane::Tools {

class CrashGuard {
public:
    // `message` is what the line says after the program's name.
    explicit CrashGuard(const std::string& message);
    CrashGuard(const CrashGuard&) = delete;
    CrashGuard& operator=(const CrashGuard&) = delete;
    ~CrashGuard();

private:
    static constexpr std::array kSignals{SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};

    // The handler needs a stack of its own, for many crashes are stack overflows.
    std::vector<char> m_stack;
    stack_t m_formerStack{};
    std::array<struct sigaction, kSignals.size()> m_formerActions{};
};

}  // namespace Tolvane::Tools
