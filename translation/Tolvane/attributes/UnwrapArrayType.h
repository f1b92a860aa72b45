// Tells how many arrays a graph type is wrapped in, and what is inside.
#pragma once

#include <Pelmor/Type.h>

namespace Tolvane {

struct UnwrappedType {
    Pelmor::Type innermost;
    unsigned arrayLevels;
};

// A type that is no array is its own innermost type, at 0 levels. [edit thread]
UnwrappedType unwrapArrayType(const Pelmor::Type& type);

}  // namespace Tolvane
