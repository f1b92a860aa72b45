// Tells which system calls of some kinds the calls of a library come to, without getting in their
// way: the kernel holds each up until a thread of this process has noted it. Only the thread that
// watches is watched, and the threads that it starts meanwhile.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Tolvane::Tools {

struct SystemCall {
    const char* name;
    long number;
    // The place of the path among its arguments, or -1 if it takes none.
    int path = -1;
    // If not, what the open file is that its first argument tells, to be of interest.
    enum class On { Anything, File, Socket } on = On::Anything;
};

class SystemCallWatch {
public:
    // There is one for the life of a process. Throws Error where the kernel offers no such thing,
    // or does not allow it to this process.
    explicit SystemCallWatch(const std::vector<SystemCall>& calls);
    SystemCallWatch(const SystemCallWatch&) = delete;
    SystemCallWatch& operator=(const SystemCallWatch&) = delete;

    // Runs `work` and returns the first of the calls that it came to, such as `openat
    // "/dev/null"`.
    std::optional<std::string> firstCallOf(const std::function<void()>& work);
};

// For each kind those that this kind of machine has.
std::vector<SystemCall> callsForFiles();
std::vector<SystemCall> callsForSockets();
std::vector<SystemCall> callsForProcesses();

}  // namespace Tolvane::Tools
