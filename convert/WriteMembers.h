// Writing to the host: the one walk over the children of a record's compound and the one walk over
// the elements of an array, with what each kind of value does. The statuses that are looked at are
// those of taking an element's handle and of removing an element; a failure of either throws
// std::runtime_error and leaves what was written before it.
#pragma once

#include "convert/Matrix.h"
#include "convert/Members.h"

#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <OpenVornik/VString.h>
#include <Pelmor/Array.h>

#include <stdexcept>
#include <tuple>

namespace Rigging::Module {

template <typename Record>
void writeMembers(const Record& record, VDataHandle& handle, const VPlug& plug);
template <typename Element>
void writeArray(const Pelmor::SharedArray<Element>& array, VDataHandle& handle, const VPlug& plug);

// What each kind of member or element does with its own data handle and plug.

inline void writeValue(const Math::double4x4& matrix, VDataHandle& handle, const VPlug&) {
    copyMatrix(matrix, handle.asMatrix());
}

inline void writeValue(const Pelmor::String& text, VDataHandle& handle, const VPlug&) {
    handle.setString(VString(text.asChar()));
}

inline void writeValue(const double& number, VDataHandle& handle, const VPlug&) {
    handle.setDouble(number);
}

template <typename Element>
void writeValue(const Pelmor::SharedArray<Element>& array, VDataHandle& handle, const VPlug& plug) {
    writeArray(array, handle, plug);
}

template <typename Record>
void writeValue(const Record& record, VDataHandle& handle, const VPlug& plug) {
    writeMembers(record, handle, plug);
}

// Writes the listed members of `record`, member i to child i.
template <typename Record>
void writeMembers(const Record& record, VDataHandle& handle, const VPlug& plug) {
    std::apply(
        [&](auto first, auto... others) {
            VPlug childPlug = plug.child(0);
            VDataHandle childHandle = handle.child(childPlug);
            writeValue(record.*first, childHandle, childPlug);
            unsigned index = 0;
            ((childPlug = plug.child(++index), childHandle = handle.child(childPlug),
              writeValue(record.*others, childHandle, childPlug)),
             ...);
        },
        Members<Record>::list);
}

// Only a record needs the plug of its element.
template <typename Element>
void writeElement(const Element& element, VDataHandle& handle, const VPlug& arrayPlug,
                  unsigned logicalIndex) {
    if constexpr (kIsRecord<Element>)
        writeMembers(element, handle, arrayPlug.elementByLogicalIndex(logicalIndex));
    else
        writeValue(element, handle, arrayPlug);
}

// The host has as many elements as the graph: element k goes to the k-th of them, whatever its
// logical index.
template <typename Element>
void writeInPlace(const Pelmor::Array<Element>& array, VArrayDataHandle& destination,
                  const VPlug& plug) {
    VStatus status;
    for (unsigned k = 0; k < array.size(); ++k) {
        VDataHandle element = destination.outputValue(&status);
        if (status.error()) throw std::runtime_error("Cannot get handle on array element !");
        writeElement(array[k], element, plug, k);
        destination.next();
    }
}

// Elements go to logical indices from 0 on; then as many as the host has too many are removed by
// logical index, from behind the last one written. The host may lack one of those and refuse.
template <typename Element>
void rebuild(const Pelmor::Array<Element>& array, VArrayDataHandle& destination,
             const VPlug& plug) {
    VArrayDataBuilder builder = destination.builder();
    for (unsigned k = 0; k < array.size(); ++k) {
        VDataHandle element = builder.addElement(k);
        writeElement(array[k], element, plug, k);
    }
    const unsigned count = builder.elementCount();
    for (auto surplus = static_cast<unsigned>(array.size()); surplus < count; ++surplus)
        if (builder.removeElement(surplus).error())
            throw std::runtime_error("Cannot remove element from array");
    destination.set(builder);
}

// Gives the host array the length and the elements of `array` and marks it clean. A null `array`
// changes nothing.
template <typename Element>
void writeArray(const Pelmor::SharedArray<Element>& array, VDataHandle& handle, const VPlug& plug) {
    if (!array) return;
    VArrayDataHandle destination(handle);
    if (array->size() == destination.elementCount())
        writeInPlace(*array, destination, plug);
    else
        rebuild(*array, destination, plug);
    destination.setAllClean();
}

}  // namespace Rigging::Module
