// Runs work on several threads at the same time.
#pragma once

#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

namespace TestSupport {

// Calls work(0) to work(threadCount - 1), each on a thread of its own. None begins before all
// threads are there, and all have ended when this returns.
template <typename Work>
void runTogether(std::size_t threadCount, const Work& work) {
    std::atomic<std::size_t> missing{threadCount};
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < threadCount; ++i)
        threads.emplace_back([&, i] {
            --missing;
            while (missing > 0) std::this_thread::yield();
            work(i);
        });
    for (std::thread& thread : threads) thread.join();
}

}  // namespace TestSupport
