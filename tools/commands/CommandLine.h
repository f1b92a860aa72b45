// Reads the command line and carries out the command that it names. Each command has a file of its
// own in this folder and a line in CommandLine.cpp that adds it.
#pragma once

namespace Tolvane::Tools {

// Returns the exit status of the program: 0 if everything that was asked for was done and every
// value that came back equals what went in, 1 if not, 2 for bad usage or a file that cannot be read
// or written. What is in the way of the command is told in one line on standard error and, where
// the arguments ask for JSON, in one object on standard output. Throws Interrupted.
int runCommandLine(int count, const char* const* arguments);

}  // namespace Tolvane::Tools
