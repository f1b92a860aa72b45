// Finds a part of an attribute's data by its path.
#pragma once

#include "tools/node/DataShape.h"

#include <string>

namespace Tolvane::Tools {

struct FoundData {
    DataPlace place;
    // One element of an array rather than all of it.
    bool isElement;
};

// `path` is as mismatches show it: names of children joined by dots, with logical indices in
// brackets, such as "pins.names[3]", or "[2].pins" in an array. An empty path is the port itself.
// Throws Error where there is no such part, with what there is instead.
FoundData findData(const DataPlace& port, const std::string& path);

}  // namespace Tolvane::Tools
