// Fills the host's data with Numbers, and tells its Leaves, with the host's interface alone. The
// walk goes through the children in their order and through the elements in ascending logical
// index; attributes that hold nothing are passed over.
#pragma once

#include "tests/support/Leaves.h"
#include "tests/support/Numbers.h"

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>

#include <vector>

namespace TestSupport {

// Arrays get the lengths that `numbers` gives, at logical indices from 0.
void number(Numbers& numbers, VDataHandle handle, VPlug plug);
// The same for each element that the array has, whatever its logical index.
void numberElements(Numbers& numbers, VDataHandle array, VPlug plug);

Leaves leavesOf(VDataHandle handle, VPlug plug);

// Gives an array exactly the elements at these logical indices; it keeps those that it has.
void setIndices(VDataHandle array, const std::vector<unsigned>& indices);
std::vector<unsigned> indicesOf(VDataHandle array);
// The element at a logical index that the array has.
VDataHandle elementOf(VDataHandle array, unsigned logicalIndex);

}  // namespace TestSupport
