// The process-wide default objects that members of class types start with.
#pragma once

#include <Pelmor/Export.h>
#include <Pelmor/Ptr.h>
#include <Tavrik/Object.h>

namespace Pelmor::Internal {

// The default object of T, made at the first call; never null, and valid while the library
// is loaded. [any thread]
template <typename T>
const Ptr<T>& getDefaultClass();

template <>
PELMOR_API const Ptr<Tavrik::Object>& getDefaultClass<Tavrik::Object>();

}  // namespace Pelmor::Internal
