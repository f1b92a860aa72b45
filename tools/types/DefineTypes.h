// Tells a graph's library of types that were described elsewhere.
#pragma once

#include "tools/types/TypeDescriptions.h"

#include <Pelmor/Library.h>

namespace Tolvane::Tools {

// Structs may refer to ones that come later. Throws Error, which names the culprit, where a name is
// taken or repeated, a type is unknown, a struct contains itself, or there is more of a struct than
// attributes could be made for; the library then has some of the types.
void defineTypes(const TypeDescriptions& types, Pelmor::Library& library);

}  // namespace Tolvane::Tools
