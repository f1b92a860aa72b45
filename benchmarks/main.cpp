// All ratios, as a Google Benchmark program.
#include "benchmarks/Ratio.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

void addTranslationRatios();
void addHolderRatios();
void addDispatchRatios();
void addStartRatios();

int main(int count, char** arguments) {
    // As in a process that has been up for a while, memory that was given back is not fetched from
    // the system anew: that would be most of what is timed, and is neither side's doing.
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, 2'000'000'000);
    mallopt(M_TOP_PAD, 64'000'000);
    // The large arrays come last: they leave a heap in which small blocks lie far apart.
    addHolderRatios();
    addDispatchRatios();
    addStartRatios();
    addTranslationRatios();
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
    Benchmarks::runRatios();
    return 0;
}
