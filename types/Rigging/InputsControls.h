// The controls that a rig module takes in, each with a weight. The arrays are shared by copies,
// never null in a new record, and never changed in place.
#pragma once

#include <Rigging/NamedTransforms.h>
#include <Tolvane/record/Record.h>

namespace Rigging::Module {

struct InputsControls {
    Pelmor::SharedArray<Pelmor::String> names = Tolvane::newArray;
    Pelmor::SharedArray<Math::double4x4> matrices = Tolvane::newArray;
    Pelmor::SharedArray<double> weights = Tolvane::newArray;
    NamedTransforms namedTransforms;
};

}  // namespace Rigging::Module

template <>
struct Tolvane::Page<Rigging::Module::InputsControls> {
    using Record = Rigging::Module::InputsControls;
    static constexpr const char* typeName = "Rigging::Module::InputsControls";
    static constexpr std::tuple members{&Record::names, &Record::matrices, &Record::weights,
                                        &Record::namedTransforms};
};
