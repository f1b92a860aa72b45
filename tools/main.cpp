// The command line.

#include "tools/commands/CommandLine.h"
#include "tools/process/Interruption.h"

int main(int count, char** arguments) {
    try {
        return Tolvane::Tools::runCommandLine(count, arguments);
    } catch (const Tolvane::Tools::Interrupted& interrupted) {
        Tolvane::Tools::endBy(interrupted.signal);
    }
}
