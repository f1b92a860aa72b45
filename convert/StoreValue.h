// The way of everything read from the host into the graph's holder.
#pragma once

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>

namespace Rigging::Module {

// Replaces what `holder` holds by a copy of `value`, which shares its arrays. It ends the process
// where there is no memory for the copy, so that a holder never holds half of a value.
template <typename Held>
void store(Pelmor::AnyValue& holder, const Held& value) noexcept {
    Pelmor::AnyValue copy = Pelmor::AnyValue::holding(value);
    holder.moveAssign(copy);
}

template <typename Held>
void readIntoHolder(Pelmor::AnyValue& holder, VDataHandle& handle, const VPlug& plug,
                    void (*read)(VDataHandle&, const VPlug&, Held&)) {
    Held value{};
    read(handle, plug, value);
    store(holder, value);
}

}  // namespace Rigging::Module
