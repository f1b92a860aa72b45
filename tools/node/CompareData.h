// Compares the data of two attributes leaf by leaf and bit by bit; of arrays, also the number of
// elements and their logical indices. A NaN equals one of the same bits; 0.0 does not equal -0.0. A
// leaf that still is as `spoilData` left it is said not to be written.
#pragma once

#include "tools/node/DataShape.h"
#include "tools/node/Mismatch.h"

#include <cstddef>
#include <optional>

namespace Tolvane::Tools {

// What is wrong with an element that has another logical index than expected.
constexpr const char* kAtAnotherIndex = "is at another index";

struct Comparison {
    std::size_t leavesCompared = 0;
    std::size_t mismatches = 0;
    std::optional<Mismatch> firstMismatch = {};

    // Tells the listener too, if there is one.
    void addMismatch(Mismatch mismatch, const MismatchListener& listener);
};

// Adds what it finds to `comparison`, and tells `listener` of each mismatch, if there is one. It is
// much cheaper without.
void compareData(const DataPlace& expected, const DataPlace& actual, Comparison& comparison,
                 const MismatchListener& listener = {});

}  // namespace Tolvane::Tools
