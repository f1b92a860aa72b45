// Writing to the host: the one walk over the children of a record's compound, the one walk over the
// elements of an array, and what each kind of value does. Two statuses are checked, those of taking
// an element's handle in place and of removing an element.
#pragma once

#include "convert/Matrix.h"
#include "convert/PlainArrays.h"
#include "convert/Translators.h"
#include "record/Page.h"

#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <OpenVornik/VString.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/Array.h>
#include <Pelmor/String.h>

#include <stdexcept>
#include <tuple>

namespace Tolvane {

// What each kind of member or element does with its own data handle and plug.

inline void writeMember(const Math::double4x4& matrix, VDataHandle& handle, VPlug&) {
    copyMatrix(matrix, handle.asMatrix());
}

inline void writeMember(const Pelmor::String& text, VDataHandle& handle, VPlug&) {
    handle.setString(VString(text.asChar()));
}

inline void writeMember(const double& number, VDataHandle& handle, VPlug&) {
    handle.setDouble(number);
}

template <typename Element>
void writeMember(const Pelmor::SharedArray<Element>& array, VDataHandle& handle, VPlug& plug) {
    Translators<Element>::writeArray(array, handle, plug);
}

template <typename Record>
void writeMember(const Record& record, VDataHandle& handle, VPlug& plug) {
    static_assert(
        kIsRecord<Record>,
        "a member that crosses is a Math::double4x4, a Pelmor::String, a double, a shared "
        "array of these or of records, or a record that has a Tolvane::Page");
    Translators<Record>::write(record, handle, plug);
}

template <typename Record>
void Translators<Record>::write(const Record& record, VDataHandle& handle, VPlug& plug) {
    std::apply(
        [&](auto first, auto... others) {
            VPlug childPlug = plug.child(0);
            VDataHandle childHandle = handle.child(childPlug);
            writeMember(record.*first, childHandle, childPlug);
            unsigned index = 0;
            ((childPlug = plug.child(++index), childHandle = handle.child(childPlug),
              writeMember(record.*others, childHandle, childPlug)),
             ...);
        },
        Page<Record>::members);
}

// Only a record needs the plug of its element.
template <typename Element>
void writeElement(const Element& element, VDataHandle& handle, VPlug& arrayPlug,
                  unsigned logicalIndex) {
    if constexpr (kIsRecord<Element>) {
        VPlug elementPlug = arrayPlug.elementByLogicalIndex(logicalIndex);
        Translators<Element>::write(element, handle, elementPlug);
    } else {
        writeMember(element, handle, arrayPlug);
    }
}

// The host has as many elements as the graph: element k goes to the k-th of them, whatever its
// logical index.
template <typename Element>
void writeInPlace(const Pelmor::Array<Element>& array, VArrayDataHandle& destination, VPlug& plug) {
    VStatus status;
    for (unsigned k = 0; k < array.size(); ++k) {
        VDataHandle element = destination.outputValue(&status);
        if (status.error()) throw std::runtime_error("Cannot get handle on array element !");
        writeElement(array[k], element, plug, k);
        destination.next();
    }
}

// Elements go to the logical indices from 0 on; then the surplus elements are removed, by logical
// index, from behind the last one written. The host refuses to remove one that it lacks.
template <typename Element>
void rebuild(const Pelmor::Array<Element>& array, VArrayDataHandle& destination, VPlug& plug) {
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

template <typename Element>
void Translators<Element>::writeArray(const Pelmor::SharedArray<Element>& array,
                                      VDataHandle& handle, VPlug& plug) {
    if (!array) return;
    VArrayDataHandle destination(handle);
    if (array->size() == destination.elementCount())
        writeInPlace(*array, destination, plug);
    else
        rebuild(*array, destination, plug);
    destination.setAllClean();
}

// A HostWriter: takes the `Held` out of the graph's holder and hands it to `write`. Throws
// std::runtime_error, "Internal error !", where `value` is empty or holds another type, and what
// `write` throws.
template <typename Held, void (*write)(const Held&, VDataHandle&, VPlug&)>
void writeFromAny(const Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug) {
    const Held* held = value.getIf<Held>();
    if (!held) throw std::runtime_error("Internal error !");
    VPlug ownPlug = plug;
    write(*held, handle, ownPlug);
}

}  // namespace Tolvane
