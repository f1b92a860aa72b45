// The joints that a rig module takes in. The arrays are shared by copies, never null in a new
// record, and never changed in place.
#pragma once

#include <Rigging/NamedTransforms.h>
#include <Tolvane/record/Record.h>

namespace Rigging::Module {

struct InputsJoints {
    Pelmor::SharedArray<Pelmor::String> names = Tolvane::newArray;
    Pelmor::SharedArray<Math::double4x4> matrices = Tolvane::newArray;
    NamedTransforms namedTransforms;
};

}  // namespace Rigging::Module

template <>
struct Tolvane::Page<Rigging::Module::InputsJoints> {
    using Record = Rigging::Module::InputsJoints;
    static constexpr const char* typeName = "Rigging::Module::InputsJoints";
    static constexpr std::tuple members{&Record::names, &Record::matrices,
                                        &Record::namedTransforms};
};
