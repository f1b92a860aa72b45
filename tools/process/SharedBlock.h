// A block of memory that a child process shares with its parent. The child notes there what it is
// at, which costs it no more than a few stores, and what it can still tell as it dies.
//
// Whatever runs in the child may have written anywhere, so the parent takes nothing in the block
// for granted.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Tolvane::Tools {

struct SharedBlock {
    // How C++ ended the work; the parent learns the rest from the system.
    enum Ending : std::uint32_t { kNone, kThrew, kThrewNoException, kTerminated };

    // Counts every note, so that the parent sees that something moves.
    std::atomic<std::uint64_t> moves;
    std::atomic<std::uint64_t> done;
    std::atomic<std::uint64_t> total;

    // Read by the parent once the child has ended.
    std::uint32_t stage;
    std::uint32_t hasFrame;
    std::uint64_t frame;
    char port[512];
    std::uint32_t memoryRanOut;
    Ending ending;
    char thrown[1024];
};

// Copies `text`, cut off where it does not fit.
template <std::size_t Size>
void store(char (&place)[Size], std::string_view text) noexcept {
    const std::size_t length = text.copy(place, Size - 1);
    place[length] = '\0';
}

template <std::size_t Size>
std::string_view stored(const char (&place)[Size]) noexcept {
    const std::string_view all(place, Size);
    return all.substr(0, all.find('\0'));
}

// A block of zeros that both sides of a fork have.
class SharedMemory {
public:
    // Throws Error if the machine has none left.
    SharedMemory();
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;
    ~SharedMemory();

    SharedBlock& block() const noexcept { return *m_block; }

private:
    SharedBlock* m_block;
};

}  // namespace Tolvane::Tools
