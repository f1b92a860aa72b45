// All ratios, as a Google Benchmark program.
#include "benchmarks/Ratio.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

void addTranslationRatios();
void addHolderRatios();
void addDispatchRatios();
void addStartRatios();

int main(int count, char** arguments) {
    // Freed memory is kept, as in a process that has run for a while. Fetching it from the system
    // again would be most of what is timed, and is no part of either side.
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, 2'000'000'000);
    mallopt(M_TOP_PAD, 64'000'000);
    // The large arrays come last: after them, small blocks lie far apart on the heap.
    addHolderRatios();
    addDispatchRatios();
    addStartRatios();
    addTranslationRatios();
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
    Benchmarks::runRatios();
    return 0;
}
