// What a command of `tolvane` hands to the command line: its options, and what carries it out.
#pragma once

#include <functional>

#include <CLI/CLI.hpp>

namespace Tolvane::Tools {

struct Command {
    // Belongs to the application that the command was added to.
    CLI::App* options;
    // Called once the options have been read. Returns the exit status of the program. Throws Error
    // where the command cannot be carried out, and Interrupted.
    std::function<int()> carryOut;
};

}  // namespace Tolvane::Tools
