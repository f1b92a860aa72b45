// Matrices by name. The arrays are shared by copies, never null in a new record, and never changed
// in place.
#pragma once

#include <Tolvane/record/Record.h>

namespace Rigging::Module {

struct Pins {
    Pelmor::SharedArray<Pelmor::String> names = Tolvane::newArray;
    Pelmor::SharedArray<Math::double4x4> matrices = Tolvane::newArray;
};

}  // namespace Rigging::Module

template <>
struct Tolvane::Page<Rigging::Module::Pins> {
    using Record = Rigging::Module::Pins;
    static constexpr const char* typeName = "Rigging::Module::Pins";
    static constexpr std::tuple members{&Record::names, &Record::matrices};
};
