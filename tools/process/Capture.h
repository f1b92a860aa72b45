// What a child process prints, on standard output and standard error together: kept in memory,
// where the child itself can see that there is something new and the parent can read it.
#pragma once

#include "tools/process/FileDescriptor.h"

#include <cstddef>
#include <string>

namespace Tolvane::Tools {

class Capture {
public:
    // Throws Error if the machine has no memory left.
    Capture();
    Capture(const Capture&) = delete;
    Capture& operator=(const Capture&) = delete;
    ~Capture();

    // In the child: from now on its prints come here, unbuffered, and it has nothing to read.
    void takeOver() const noexcept;

    // How many bytes have been printed.
    std::size_t size() const noexcept;
    // What was printed from there on, cut off where it is long.
    std::string textFrom(std::size_t start) const;
    // Whether anything was printed from `start` on. Looks at one byte of memory, and so overlooks
    // what begins with a zero byte.
    bool looksWrittenAt(std::size_t start) const noexcept;

private:
    FileDescriptor m_file;
    const volatile char* m_text;
};

}  // namespace Tolvane::Tools
