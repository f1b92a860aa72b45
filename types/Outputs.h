// All that a rig module gives out. The objects travel with the record and are shared by copies; a
// new record has the graph's default object in both.
#pragma once

#include "types/NamedTransforms.h"
#include "types/Pins.h"
#include "types/RecordElements.h"

#include <Pelmor/DefaultClass.h>
#include <Pelmor/Ptr.h>
#include <Pelmor/String.h>
#include <Tavrik/Object.h>

namespace Rigging::Module {

struct Outputs {
    Pelmor::String name;
    Pins pins;
    NamedTransforms namedTransforms0;
    NamedTransforms namedTransforms1;
    NamedTransforms namedTransforms2;
    Pelmor::Ptr<Tavrik::Object> object0 = Pelmor::Internal::getDefaultClass<Tavrik::Object>();
    Pelmor::Ptr<Tavrik::Object> object1 = Pelmor::Internal::getDefaultClass<Tavrik::Object>();
};

}  // namespace Rigging::Module

template <>
struct Pelmor::Internal::ElementTraits<Rigging::Module::Outputs>
    : Rigging::Module::RecordElementTraits<Rigging::Module::Outputs> {};
