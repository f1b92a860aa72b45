#include "tools/process/Interruption.h"

#include <array>
#include <csignal>
#include <cstdlib>

namespace Tolvane::Tools {
namespace {

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};

volatile std::sig_atomic_t s_signal = 0;
std::array<struct sigaction, kSignals.size()> s_formerActions;

extern "C" void tolvaneNoteInterruption(int signal) { s_signal = signal; }

int takeSignal() noexcept {
    const int signal = s_signal;
    s_signal = 0;
    return signal;
}

}  // namespace

InterruptionGuard::InterruptionGuard() {
    s_signal = 0;
    struct sigaction action {};
    action.sa_handler = tolvaneNoteInterruption;
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        sigaction(kSignals[i], nullptr, &s_formerActions[i]);
        if (s_formerActions[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
    }
}

InterruptionGuard::~InterruptionGuard() {
    for (std::size_t i = 0; i < kSignals.size(); ++i)
        sigaction(kSignals[i], &s_formerActions[i], nullptr);
    if (s_signal != 0) std::raise(takeSignal());
}

void throwIfInterrupted() {
    if (const int signal = takeSignal()) throw Interrupted{signal};
}

void forgetInterruptions() noexcept {
    s_signal = 0;
    for (const int signal : kSignals) std::signal(signal, SIG_DFL);
}

void endBy(int signal) {
    std::signal(signal, SIG_DFL);
    std::raise(signal);
    std::abort();
}

}  // namespace Tolvane::Tools
