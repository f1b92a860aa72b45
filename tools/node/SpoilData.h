// Overwrites what an attribute holds, so that what is found there later was written since.
#pragma once

#include "tools/node/DataShape.h"

namespace Tolvane::Tools {

// Gives each leaf a value that no rig has. Arrays keep their elements.
void spoilData(const DataPlace& place);

}  // namespace Tolvane::Tools
