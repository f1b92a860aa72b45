// Third-party readers of rig files crash on some damaged ones, with words of their own. While a
// guard lives, a crash of the process becomes what any other unreadable file is: one line on
// standard error and exit status 2. Nothing else gets to standard error meanwhile. At most one
// guard lives at a time.
#pragma once

#include <array>
#include <csignal>
#include <string>
#include <vector>

namespace Tolvane::Tools {

class CrashGuard {
public:
    // `message` is the line, without the program's name and the line's end.
    explicit CrashGuard(const std::string& message);
    CrashGuard(const CrashGuard&) = delete;
    CrashGuard& operator=(const CrashGuard&) = delete;
    ~CrashGuard();

private:
    static constexpr std::array kSignals{SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};

    // The handler runs on a stack of its own: a crash is often that of an endless recursion.
    std::vector<char> m_stack;
    stack_t m_formerStack{};
    std::array<struct sigaction, kSignals.size()> m_formerActions{};
};

}  // namespace Tolvane::Tools
