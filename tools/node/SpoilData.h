// Overwrites what an attribute holds, so that a value that is right later must have been written
// since.
#pragma once

#include "tools/node/DataShape.h"

namespace Tolvane::Tools {

// Gives each leaf a value that no rig has, and inverts bools, which have no such value. Arrays keep
// their elements.
void spoilData(const DataPlace& place);

}  // namespace Tolvane::Tools
