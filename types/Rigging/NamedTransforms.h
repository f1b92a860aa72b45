// Transforms by name. The arrays are shared by copies, never null in a new record, and never
// changed in place.
#pragma once

#include <Rigging/Transform.h>
#include <Tolvane/record/Record.h>

namespace Rigging::Module {

struct NamedTransforms {
    Pelmor::SharedArray<Pelmor::String> names = Tolvane::newArray;
    Pelmor::SharedArray<Core::Transform::Transform> transforms = Tolvane::newArray;
};

}  // namespace Rigging::Module

template <>
struct Tolvane::Page<Rigging::Module::NamedTransforms> {
    using Record = Rigging::Module::NamedTransforms;
    static constexpr const char* typeName = "Rigging::Module::NamedTransforms";
    static constexpr std::tuple members{&Record::names, &Record::transforms};
};
