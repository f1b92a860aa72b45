#include "benchmarks/Ratio.h"

#include <ctime>
#include <utility>

#include <benchmark/benchmark.h>

namespace Benchmarks {
namespace {

constexpr int kRepetitions = 9;
constexpr double kSecondsPerRepetition = 0.02;

// This thread's processor time, to which other work on the machine adds nothing.
double secondsNow() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double secondsOf(const Side& side) {
    if (side.prepare) side.prepare();
    const double begin = secondsNow();
    side.run();
    return secondsNow() - begin;
}

std::string s_name;
Pair s_pair;

// The repetitions of a benchmark follow one another, so that one pair serves them all.
const Pair& pairOf(const std::string& name, const std::function<Pair()>& make) {
    if (s_name != name) {
        s_pair = {};
        s_pair = make();
        s_name = name;
        // The first run of each side warms memory and caches, and is not timed.
        secondsOf(s_pair.measured);
        secondsOf(s_pair.reference);
    }
    return s_pair;
}

void measure(benchmark::State& state, const Pair& pair) {
    double measured = 0;
    double reference = 0;
    bool measuredFirst = false;
    for ([[maybe_unused]] const auto turn : state) {
        measuredFirst = !measuredFirst;
        const double first = secondsOf(measuredFirst ? pair.measured : pair.reference);
        const double second = secondsOf(measuredFirst ? pair.reference : pair.measured);
        measured += measuredFirst ? first : second;
        reference += measuredFirst ? second : first;
        state.SetIterationTime(first + second);
    }
    const auto turns = static_cast<double>(state.iterations());
    const double measuredNs = measured * 1e9 / turns / pair.measured.elements;
    const double referenceNs = reference * 1e9 / turns / pair.reference.elements;
    state.counters["ratio"] = measuredNs / referenceNs;
    state.counters["ns"] = measuredNs;
    state.counters["referenceNs"] = referenceNs;
}

}  // namespace

void addRatio(const std::string& name, std::function<Pair()> make) {
    const auto run = [name, make = std::move(make)](benchmark::State& state) {
        measure(state, pairOf(name, make));
    };
    benchmark::RegisterBenchmark(name.c_str(), run)
        ->UseManualTime()
        ->MinTime(kSecondsPerRepetition)
        ->Repetitions(kRepetitions);
}

void runRatios() {
    benchmark::RunSpecifiedBenchmarks();
    s_pair = {};
}

}  // namespace Benchmarks
