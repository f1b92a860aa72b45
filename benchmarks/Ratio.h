// What every benchmark here gives: the ratio of the times that two things take, measured in turn in
// one run. A repetition of the benchmark is one such pair of times.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace Benchmarks {

// One of the two things.
struct Side {
    // What is timed.
    std::function<void()> run;
    // What comes before each run and is not timed, if anything.
    std::function<void()> prepare = {};
    // How many elements a run handles: the time of a side is that of one element.
    double elements = 1;
};

struct Pair {
    Side measured;
    Side reference;
    // Whatever the sides work on.
    std::shared_ptr<void> kept = {};
};

// Registers a benchmark that gives, for each repetition, the counters "ratio" (measured over
// reference), "ns" and "referenceNs" (per element). The pair is made when its turn comes and is
// gone before the next is made.
void addRatio(const std::string& name, std::function<Pair()> make);

// Runs what was registered and is asked for by Google Benchmark's own options. What the last pair
// worked on is gone when this returns.
void runRatios();

}  // namespace Benchmarks
