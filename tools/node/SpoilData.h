// Overwrites what an attribute holds, so that a value that is right later must have been written
// since.
#pragma once

#include "tools/node/DataShape.h"

namespace Tolvane::Tools {

// Gives each leaf a value that no rig has, and inverts bools, which have no such value. Arrays keep
// their elements.
void spoilData(const DataPlace& place);

// Whether a leaf still has the value that `spoilData` gave it. Never true of a bool.
bool isSpoilt(const DataPlace& leaf);

}  // namespace Tolvane::Tools
