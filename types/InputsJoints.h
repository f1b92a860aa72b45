// The joints that a rig module takes in. The arrays are shared by copies, never null in a new
// record, and never changed in place.
#pragma once

#include "types/NamedTransforms.h"
#include "types/RecordElements.h"

#include <Math/double4x4.h>
#include <Pelmor/Array.h>
#include <Pelmor/String.h>

namespace Rigging::Module {

struct InputsJoints {
    Pelmor::SharedArray<Pelmor::String> names = Pelmor::makePtr<Pelmor::Array<Pelmor::String>>();
    Pelmor::SharedArray<Math::double4x4> matrices =
        Pelmor::makePtr<Pelmor::Array<Math::double4x4>>();
    NamedTransforms namedTransforms;
};

}  // namespace Rigging::Module

template <>
struct Pelmor::Internal::ElementTraits<Rigging::Module::InputsJoints>
    : Rigging::Module::RecordElementTraits<Rigging::Module::InputsJoints> {};
