// Matrices by name. The arrays are shared by copies, never null in a new record, and never changed
// in place.
#pragma once

#include "types/RecordElements.h"

#include <Math/double4x4.h>
#include <Pelmor/Array.h>
#include <Pelmor/String.h>

namespace Rigging::Module {

struct Pins {
    Pelmor::SharedArray<Pelmor::String> names = Pelmor::makePtr<Pelmor::Array<Pelmor::String>>();
    Pelmor::SharedArray<Math::double4x4> matrices =
        Pelmor::makePtr<Pelmor::Array<Math::double4x4>>();
};

}  // namespace Rigging::Module

template <>
struct Pelmor::Internal::ElementTraits<Rigging::Module::Pins>
    : Rigging::Module::RecordElementTraits<Rigging::Module::Pins> {};
