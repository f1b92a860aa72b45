// Prints what it costs to read a rig in a process of its own: reading_cost RIG
#include "tools/rig/ReadRig.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <functional>
#include <stdexcept>
#include <vector>

namespace {

using namespace Tolvane::Tools;

constexpr std::size_t kRepetitions = 31;

double milliseconds(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
        .count();
}

double median(std::vector<double> times) {
    std::nth_element(times.begin(), times.begin() + kRepetitions / 2, times.end());
    return times[kRepetitions / 2];
}

}  // namespace

int main(int count, char** arguments) {
    try {
        if (count != 2) throw std::runtime_error("usage: reading_cost RIG");
        // In turn, so that what else the machine does falls on both.
        std::vector<double> apart, here;
        for (std::size_t i = 0; i < kRepetitions; ++i) {
            apart.push_back(milliseconds([&] { readRig(arguments[1], {}, {}); }));
            here.push_back(milliseconds([&] { loadRig(arguments[1]); }));
        }
        std::printf("%.1f ms in a process of its own, %.1f ms without\n", median(apart),
                    median(here));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "reading_cost: %s\n", error.what());
        return 2;
    }
}
