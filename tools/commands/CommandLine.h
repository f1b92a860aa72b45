// Reads the command line and carries out the command that it names. Each command has a file of its
// own in this folder and a line in CommandLine.cpp that adds it.
#pragma once

namespace Tolvane::Tools {

// False if the command was carried out and found a value that differs or a translation that fails.
// Where help or the version is asked for, prints that and returns true. Throws Error for bad usage
// and for files that cannot be read or written.
bool runCommandLine(int count, const char* const* arguments);

}  // namespace Tolvane::Tools
