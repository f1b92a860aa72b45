#include "tools/check/Surroundings.h"

#include "tools/support/OneLine.h"

#include <cfenv>
#include <clocale>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <limits>
#include <locale>
#include <sstream>
#include <system_error>

#include <locale.h>  // NOLINT(modernize-deprecated-headers): it has what POSIX adds.
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tolvane::Tools {
namespace {

const char* onOrOff(bool isOn) { return isOn ? "on" : "off"; }

std::string inBase(int base, unsigned long number) {
    std::ostringstream text;
    text << std::setbase(base) << std::showbase << number;
    return text.str();
}

std::string handlerOf(const struct sigaction& action) {
    if ((action.sa_flags & SA_SIGINFO) == 0) {
        if (action.sa_handler == SIG_DFL) return "the default";
        if (action.sa_handler == SIG_IGN) return "to ignore it";
    }
    // Both kinds of handler have the same place.
    std::uintptr_t address = 0;
    std::memcpy(&address, &action.sa_handler, sizeof address);
    return "a function at " + inBase(16, address);
}

std::string signalName(int signal) {
    const char* name = sigabbrev_np(signal);
    return name ? std::string("SIG") + name : "signal " + std::to_string(signal);
}

// Whether a sum is rounded to the nearest number cannot be told from a constant, which the compiler
// would have rounded.
volatile double s_tiniest = std::numeric_limits<double>::denorm_min();
volatile double s_smallestNormal = std::numeric_limits<double>::min();

std::string roundingName(int mode) {
    switch (mode) {
        case FE_TONEAREST:
            return "to the nearest";
        case FE_DOWNWARD:
            return "downward";
        case FE_UPWARD:
            return "upward";
        case FE_TOWARDZERO:
            return "toward zero";
        default:
            return std::to_string(mode);
    }
}

}  // namespace

Surroundings environmentVariables() {
    Surroundings variables;
    for (char** variable = environ; variable && *variable; ++variable) {
        const std::string text = *variable;
        const std::size_t equals = text.find('=');
        variables[text.substr(0, equals)] =
            equals == std::string::npos ? "" : text.substr(equals + 1);
    }
    return variables;
}

Surroundings currentFolderAndFileMask() {
    std::error_code none;
    const mode_t mask = umask(0);
    umask(mask);
    return {{"the current folder", std::filesystem::current_path(none).string()},
            {"the mask of new files", inBase(8, mask)}};
}

Surroundings localeSettings() {
    return {{"the locale", std::setlocale(LC_ALL, nullptr)},
            {"the decimal point", std::localeconv()->decimal_point},
            {"the thread's locale", uselocale(nullptr) == LC_GLOBAL_LOCALE ? "global" : "its own"},
            {"the locale of streams", std::locale().name()}};
}

Surroundings signalSettings() {
    Surroundings settings;
    sigset_t blocked;
    pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
    for (int signal = 1; signal <= SIGRTMAX; ++signal) {
        const std::string name = signalName(signal);
        struct sigaction action {};
        if (sigaction(signal, nullptr, &action) != 0) continue;
        settings["the handler of " + name] = handlerOf(action);
        settings["the blocking of " + name] = onOrOff(sigismember(&blocked, signal) == 1);
    }
    return settings;
}

Surroundings floatingPointModes() {
    const double half = s_smallestNormal / 2;
    const double two = s_tiniest * std::numeric_limits<double>::max();
    return {{"the rounding", roundingName(std::fegetround())},
            {"the mask of exceptions that are raised",
             inBase(16, static_cast<unsigned>(fegetexcept()))},
            {"the flushing of small results to zero", onOrOff(half == 0)},
            {"the taking of small numbers for zero", onOrOff(two == 0)}};
}

std::string firstChange(const Surroundings& before, const Surroundings& after) {
    const auto quoted = [](const std::string& text) { return inQuotes(oneLine(text)); };
    for (const auto& [name, value] : before) {
        const auto now = after.find(name);
        if (now == after.end()) return oneLine(name) + ", which was " + quoted(value) + ", is gone";
        if (now->second != value)
            return oneLine(name) + ", which was " + quoted(value) + ", is " + quoted(now->second);
    }
    for (const auto& [name, value] : after)
        if (before.count(name) == 0) return oneLine(name) + " is new, and is " + quoted(value);
    return "";
}

}  // namespace Tolvane::Tools
