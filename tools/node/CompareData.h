// Compares the data of two attributes leaf by leaf and bit by bit; of arrays, also the number of
// elements and their logical indices. A NaN equals one of the same bits; 0.0 does not equal -0.0.
#pragma once

#include "tools/node/DataShape.h"

#include <cstddef>
#include <string>

namespace Tolvane::Tools {

struct Comparison {
    std::size_t leavesCompared = 0;
    std::size_t mismatches = 0;
    // Where and what the first mismatch was, such as "pins.names[3]: differs".
    std::string firstMismatch = {};

    void addMismatch(const std::string& what);
};

// Adds what it finds to `comparison`.
void compareData(const DataPlace& expected, const DataPlace& actual, Comparison& comparison);

}  // namespace Tolvane::Tools
