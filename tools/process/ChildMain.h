// The life of a child process, from the fork to its end.
#pragma once

#include "tools/process/Child.h"

#include <cstdint>

namespace Tolvane::Tools {

// What the child sends begins with this, and goes on with `size` bytes: the answer, or the error
// that the work threw, as a message.
struct AnswerHead {
    enum Kind : std::uint64_t { kAnswer = 0x2e726577736e6154, kError };

    std::uint64_t kind;
    std::uint64_t size;
};

// Where the child finds what it needs.
struct ChildSetting {
    const Limits& limits;
    const Capture& capture;
    SharedBlock& block;
    // The file descriptor that takes the answer.
    int answer;
    pid_t parent;
};

[[noreturn]] void liveAsChild(const Work& work, const ChildSetting& setting) noexcept;

}  // namespace Tolvane::Tools
