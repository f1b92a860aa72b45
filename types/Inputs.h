// All that a rig module takes in. The objects travel with the record and are shared by copies; a
// new record has the graph's default object in both.
#pragma once

#include "types/InputsControls.h"
#include "types/InputsJoints.h"
#include "types/Pins.h"
#include "types/RecordElements.h"

#include <Pelmor/DefaultClass.h>
#include <Pelmor/Ptr.h>
#include <Tavrik/Object.h>

namespace Rigging::Module {

struct Inputs {
    Pins pins;
    InputsJoints joints;
    InputsControls controls0;
    InputsControls controls1;
    Pelmor::Ptr<Tavrik::Object> object0 = Pelmor::Internal::getDefaultClass<Tavrik::Object>();
    Pelmor::Ptr<Tavrik::Object> object1 = Pelmor::Internal::getDefaultClass<Tavrik::Object>();
};

}  // namespace Rigging::Module

template <>
struct Pelmor::Internal::ElementTraits<Rigging::Module::Inputs>
    : Rigging::Module::RecordElementTraits<Rigging::Module::Inputs> {};
