// What a child process may use before it is ended.
#pragma once

#include <cstddef>
#include <optional>

namespace Tolvane::Tools {

struct Limits {
    // In bytes, beyond what the process has as it begins. Nothing is limited if 0.
    std::size_t memory = std::size_t{4} << 30;
    // In seconds. Nothing is limited if 0.
    unsigned processorTime = 60;
    // How many seconds of real time may pass without a sign of progress.
    unsigned silence = 60;
    // In bytes, what may be printed, and the size of any file that is written.
    std::size_t written = std::size_t{256} << 20;
    // In bytes, the answer.
    std::size_t answer = std::size_t{1} << 30;
};

// The same, lowered to what whoever started this process allows it and its children: a child that
// reaches that has not reached what was asked for.
Limits withinInherited(Limits limits);

// In bytes.
struct MemoryInUse {
    std::size_t addresses;
    // Of these, what can be written to.
    std::size_t data;
};

// Of this process. Nothing where the system does not tell.
std::optional<MemoryInUse> memoryNow();

}  // namespace Tolvane::Tools
