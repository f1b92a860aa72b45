// Values for attributes that a rig has nothing for. The same seed always gives the same value.
#pragma once

#include "tools/node/DataShape.h"

#include <cstdint>

namespace Tolvane::Tools {

// A seed of its own for the part of something that has this number.
std::uint64_t seedOf(std::uint64_t seed, std::uint64_t part);

// Writes a value of the attribute's kind; of an enum, one that it has a field for. Numbers are
// finite. `place` is no compound and no array.
void generateData(const DataPlace& place, std::uint64_t seed);

}  // namespace Tolvane::Tools
