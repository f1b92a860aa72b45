// The command line. Exit status 0 if everything that was asked for was done and every value that
// came back equals what went in, 1 if not, 2 for bad usage or a file that cannot be read or
// written.

#include "tools/commands/CommandLine.h"
#include "tools/support/OneLine.h"

#include <exception>
#include <iostream>

int main(int count, char** arguments) {
    try {
        return Tolvane::Tools::runCommandLine(count, arguments) ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << "tolvane: " << Tolvane::Tools::oneLine(error.what()) << "\n";
        return 2;
    }
}
