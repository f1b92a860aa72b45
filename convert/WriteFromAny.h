// What the registry files for writing: takes the value of one type out of the graph's holder and
// hands it to that type's writer.
#pragma once

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>

#include <stdexcept>

namespace Rigging::Module {

// Throws std::runtime_error, "Internal error !", where `value` is empty or holds another type, and
// whatever `write` throws. [evaluation thread]
template <typename Held, void (*write)(const Held&, VDataHandle&, const VPlug&)>
void writeFromAny(const Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    const Held* held = value.getIf<Held>();
    if (!held) throw std::runtime_error("Internal error !");
    write(*held, handle, plug);
}

}  // namespace Rigging::Module
