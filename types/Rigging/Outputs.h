// All that a rig module gives out. The objects stay in the graph: they travel with the record and
// are shared by copies, and a new record has the graph's default object in both.
#pragma once

#include <Rigging/NamedTransforms.h>
#include <Rigging/Pins.h>
#include <Tolvane/record/Record.h>

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
struct Tolvane::Page<Rigging::Module::Outputs> {
    using Record = Rigging::Module::Outputs;
    static constexpr const char* typeName = "Rigging::Module::Outputs";
    static constexpr std::tuple members{&Record::name, &Record::pins, &Record::namedTransforms0,
                                        &Record::namedTransforms1, &Record::namedTransforms2};
};
