// What a child process prints, on standard output and standard error together: kept in memory,
// where the child itself can see that there is something new, and what.
#pragma once

#include "tools/process/FileDescriptor.h"

#include <cstddef>
#include <string>

namespace Tolvane::Tools {

class Capture {
public:
    // Throws Error if the machine has no memory left, or this process no file descriptor.
    Capture();

    // In the child: from now on its prints come here, unbuffered, and it has nothing to read.
    void takeOver() const noexcept;

    // For a process that has nothing to do with it.
    void close() noexcept { m_file.close(); }

    // How many bytes have been printed.
    std::size_t size() const noexcept;
    // What was printed from there on, cut off where it is long.
    std::string textFrom(std::size_t start) const;

private:
    FileDescriptor m_file;
};

}  // namespace Tolvane::Tools
