// Whether the attributes that a translation made for a port are those of the port's type.
#pragma once

#include "tools/node/DataShape.h"

#include <Pelmor/Type.h>

#include <optional>
#include <string>

namespace Tolvane::Tools {

// Where and why the attributes cannot hold a value of `type`, such as "inPins.names: is a string,
// not array<string>"; nothing if they can: there is an array for each array, a child for each
// member and a leaf of the right kind for each value.
std::optional<std::string> misfitOf(const DataShape& shape, const Pelmor::Type& type);

}  // namespace Tolvane::Tools
