// Whether the attributes that a translation made for a port are those of the port's type.
#pragma once

#include "tools/node/DataShape.h"

#include <Pelmor/Type.h>

#include <optional>
#include <string>

namespace Tolvane::Tools {

struct Misfit {
    // The way from the port's attribute, such as "pins.names"; empty if it is that one.
    std::string path;
    // Such as "is a string, not array<string>".
    std::string what;
};

// Why the attributes cannot hold a value of `type`; nothing if they can: there is an array for each
// array, a child for each member and a leaf of the right kind for each value.
std::optional<Misfit> misfitOf(const DataShape& shape, const Pelmor::Type& type);

}  // namespace Tolvane::Tools
