// The command line.

#include "tools/commands/CommandLine.h"
#include "tools/process/Interruption.h"

#include <csignal>

#include <fcntl.h>
#include <unistd.h>

// What is loaded beside a translation library that was built with ThreadSanitizer mostly was not:
// races that the sanitizer takes its own blindness for are none. Nobody asks unless its runtime was
// loaded into this program.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the runtime chose the name.
extern "C" __attribute__((visibility("default"))) const char* __tsan_default_options() {
    return "ignore_noninstrumented_modules=1";
}

namespace {

// Where a standard stream is closed, the next file to be opened would be taken for it.
void keepStandardStreamsApart() {
    int file = 0;
    while (file >= 0 && file <= STDERR_FILENO) file = open("/dev/null", O_RDONLY);
    close(file);
}

}  // namespace

int main(int count, char** arguments) {
    keepStandardStreamsApart();
    // A limit on the size of files is an error like another.
    std::signal(SIGXFSZ, SIG_IGN);
    // Whoever started this program may have ignored it: then nobody could tell how a process ended.
    std::signal(SIGCHLD, SIG_DFL);
    try {
        return Tolvane::Tools::runCommandLine(count, arguments);
    } catch (const Tolvane::Tools::Interrupted& interrupted) {
        Tolvane::Tools::endBy(interrupted.signal);
    }
}
