// All that a rig module takes in. The objects stay in the graph: they travel with the record and
// are shared by copies, and a new record has the graph's default object in both.
#pragma once

#include <Rigging/InputsControls.h>
#include <Rigging/InputsJoints.h>
#include <Rigging/Pins.h>
#include <Tolvane/record/Record.h>

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
struct Tolvane::Page<Rigging::Module::Inputs> {
    using Record = Rigging::Module::Inputs;
    static constexpr const char* typeName = "Rigging::Module::Inputs";
    static constexpr std::tuple members{&Record::pins, &Record::joints, &Record::controls0,
                                        &Record::controls1};
};
