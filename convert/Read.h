// Reading from the host: the one walk over the children of a record's compound, the one walk over
// the elements of an array, and what each kind of value does. No status is passed to the host; the
// only one that is checked is what moving to an array's next element returns.
#pragma once

#include "convert/FetchAhead.h"
#include "convert/Matrix.h"
#include "convert/NewElements.h"
#include "convert/PlainArrays.h"
#include "convert/Translators.h"
#include "record/Page.h"

#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/Array.h>
#include <Pelmor/String.h>

#include <algorithm>
#include <cstdint>
#include <tuple>
#include <utility>

namespace Tolvane {

// What each kind of member or element does with its own data handle and plug.

inline void readMember(VDataHandle& handle, VPlug&, Math::double4x4& matrix) {
    copyMatrix(handle.asMatrix(), matrix);
}

inline void readMember(VDataHandle& handle, VPlug&, Pelmor::String& text) {
    text = handle.asString().asChar();
}

inline void readMember(VDataHandle& handle, VPlug&, double& number) { number = handle.asDouble(); }

template <typename Element>
void readMember(VDataHandle& handle, VPlug& plug, Pelmor::SharedArray<Element>& array) {
    Translators<Element>::readArray(handle, plug, array);
}

template <typename Record>
void readMember(VDataHandle& handle, VPlug& plug, Record& record) {
    static_assert(
        kIsRecord<Record>,
        "a member that crosses is a Math::double4x4, a Pelmor::String, a double, a shared "
        "array of these or of records, or a record that has a Tolvane::Page");
    Translators<Record>::read(handle, plug, record);
}

template <typename Record>
void Translators<Record>::read(VDataHandle& handle, VPlug& plug, Record& record) {
    std::apply(
        [&](auto first, auto... others) {
            VPlug childPlug = plug.child(0);
            VDataHandle childHandle = handle.child(childPlug);
            readMember(childHandle, childPlug, record.*first);
            unsigned index = 0;
            ((childPlug = plug.child(++index), childHandle = handle.child(childPlug),
              readMember(childHandle, childPlug, record.*others)),
             ...);
        },
        Page<Record>::members);
}

// Only a record needs the plug of its element. The element's position stands in for its logical
// index there: the children are found by attribute, whatever element their plug stands in.
template <typename Element>
void readElement(VDataHandle& handle, VPlug& arrayPlug, unsigned position, Element& element) {
    if constexpr (kIsRecord<Element>) {
        VPlug elementPlug = arrayPlug.elementByLogicalIndex(position);
        Translators<Element>::read(handle, elementPlug, element);
    } else {
        readMember(handle, arrayPlug, element);
    }
}

// Reads the host's elements in the host's order, as many as `elements` has. Returns how many there
// were before the walk ended.
template <typename Element>
unsigned readElements(VArrayDataHandle& source, VPlug& plug, Pelmor::Array<Element>& elements) {
    const std::uint64_t count = elements.size();
    unsigned position = 0;
    while (position < count) {
        if constexpr (kIsSetWhole<Element>) fetchAheadOf(elements, position);
        VDataHandle elementHandle = source.inputValue();
        readElement(elementHandle, plug, position, elements[position]);
        ++position;
        if (source.next().error()) break;
    }
    return position;
}

template <typename Element>
void Translators<Element>::readArray(VDataHandle& handle, VPlug& plug,
                                     Pelmor::SharedArray<Element>& array) {
    VArrayDataHandle source(handle);
    Pelmor::SharedArray<Element> elements = newElements<Element>(source.elementCount());
    const unsigned read = readElements(source, plug, *elements);
    if constexpr (kIsSetWhole<Element>)
        std::fill(elements->begin() + read, elements->end(), Element());
    array = std::move(elements);
}

// Replaces what `holder` holds by a copy of `value`, which shares its arrays. The holder lets go of
// its former content only once the copy is made. Without memory for the copy there is no value to
// give, and the process ends.
template <typename Held>
void store(Pelmor::AnyValue& holder, const Held& value) noexcept {
    Pelmor::AnyValue copy = Pelmor::AnyValue::holding(value);
    holder.moveAssign(copy);
}

template <typename Record>
void Translators<Record>::readValue(Pelmor::AnyValue& value, VDataHandle& handle,
                                    const VPlug& plug) {
    VPlug ownPlug = plug;
    Record record{};
    read(handle, ownPlug, record);
    store(value, record);
}

template <typename Record>
void Translators<Record>::readArrayValue(Pelmor::AnyValue& value, VDataHandle& handle,
                                         const VPlug& plug) {
    VPlug ownPlug = plug;
    Pelmor::SharedArray<Record> array;
    readArray(handle, ownPlug, array);
    store(value, array);
}

}  // namespace Tolvane
