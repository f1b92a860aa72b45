#include "tools/process/Outcome.h"

#include <csignal>
#include <sstream>

namespace Tolvane::Tools {
namespace {

// "4 GiB", "1.5 MiB"
std::string size(std::size_t bytes) {
    const bool large = bytes >= std::size_t{1} << 30;
    std::ostringstream text;
    text << static_cast<double>(bytes) / (large ? 1 << 30 : 1 << 20) << (large ? " GiB" : " MiB");
    return text.str();
}

std::string endingBySignal(int signal) {
    switch (signal) {
        case SIGSEGV:
            return "crashes (segmentation fault)";
        case SIGBUS:
            return "crashes (bus error)";
        case SIGFPE:
            return "crashes (arithmetic error)";
        case SIGILL:
            return "crashes (illegal instruction)";
        case SIGABRT:
            return "aborts";
        default:
            return "is ended by signal " + std::to_string(signal);
    }
}

}  // namespace

std::string inWords(const Outcome& outcome) {
    const Limits& limits = outcome.limits;
    using End = Outcome::End;
    switch (outcome.end) {
        case End::Failed:
            return "fails: " + std::string(outcome.error->what());
        case End::Threw:
            return outcome.thrown;
        case End::Exited:
            return "ends the process with status " + std::to_string(outcome.code);
        case End::Killed:
            return endingBySignal(outcome.code);
        case End::OutOfMemory:
            if (limits.memory == 0) return "takes more memory than there is";
            return "takes more than " + size(limits.memory) + " of memory";
        case End::OutOfTime:
            return "takes more than " + std::to_string(limits.processorTime) +
                   " s of processor time";
        case End::Silent:
            return "makes no progress for " + std::to_string(limits.silence) + " s";
        case End::WrittenTooMuch:
            return "writes more than " + size(limits.written);
        case End::AnsweredTooMuch:
            return "answers with more than " + size(limits.answer);
        case End::Answered:
            break;
    }
    return "ends well";
}

}  // namespace Tolvane::Tools
