// Transforms by name. The arrays are shared by copies, never null in a new record, and never
// changed in place.
#pragma once

#include "types/RecordElements.h"
#include "types/Transform.h"

#include <Pelmor/Array.h>
#include <Pelmor/String.h>

namespace Rigging::Module {

struct NamedTransforms {
    Pelmor::SharedArray<Pelmor::String> names = Pelmor::makePtr<Pelmor::Array<Pelmor::String>>();
    Pelmor::SharedArray<Core::Transform::Transform> transforms =
        Pelmor::makePtr<Pelmor::Array<Core::Transform::Transform>>();
};

}  // namespace Rigging::Module

template <>
struct Pelmor::Internal::ElementTraits<Rigging::Module::NamedTransforms>
    : Rigging::Module::RecordElementTraits<Rigging::Module::NamedTransforms> {};
