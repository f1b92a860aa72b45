// Runs work on several threads that begin at the same moment.
#pragma once

#include <atomic>
#include <cstddef>
#include <exception>
#include <thread>
#include <vector>

namespace Tolvane::Tools {

// So many threads use a library together.
constexpr std::size_t kThreads = 8;

// Calls `work(number)` on `count` threads, for the numbers from 0 on, and waits for all. Throws the
// first exception that one of them threw.
template <typename Work>
void runTogether(std::size_t count, const Work& work) {
    std::atomic<std::size_t> waiting{count};
    std::vector<std::exception_ptr> thrown(count);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < count; ++i)
        threads.emplace_back([&, i] {
            --waiting;
            while (waiting > 0) std::this_thread::yield();
            try {
                work(i);
            } catch (...) {
                thrown[i] = std::current_exception();
            }
        });
    for (std::thread& thread : threads) thread.join();
    for (const std::exception_ptr& exception : thrown)
        if (exception) std::rethrow_exception(exception);
}

}  // namespace Tolvane::Tools
