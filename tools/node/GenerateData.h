// Values for attributes that a rig has nothing for. The same seed always gives the same value.
#pragma once

#include "tools/node/DataShape.h"

#include <OpenVornik/VMatrix.h>
#include <OpenVornik/VString.h>

#include <cstdint>
#include <optional>
#include <variant>

namespace Tolvane::Tools {

// A seed of its own for the part of something that has this number.
std::uint64_t seedOf(std::uint64_t seed, std::uint64_t part);

using GeneratedValue = std::variant<VMatrix, VString, double, bool, int, short>;

// Of the attribute's kind; of an enum, one that it has a field for. Numbers are finite. Nothing for
// a compound and for what has no data.
std::optional<GeneratedValue> generatedValue(const DataShape& leaf, std::uint64_t seed);

// Writes it, if there is one. `place` is no array.
void generateData(const DataPlace& place, std::uint64_t seed);

}  // namespace Tolvane::Tools
