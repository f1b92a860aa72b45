// What a child process may use before it is ended.
#pragma once

#include <cstddef>

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

}  // namespace Tolvane::Tools
