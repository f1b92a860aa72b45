// Reading from the host: what each kind of value does, the walk over the elements of an array, and
// how what was read gets into a holder. No status is passed to the host; the only one that is
// checked is what moving to an array's next element returns.
#pragma once

#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/Array.h>
#include <Pelmor/String.h>
#include <Tolvane/convert/Children.h>
#include <Tolvane/convert/FetchAhead.h>
#include <Tolvane/convert/Matrix.h>
#include <Tolvane/convert/NewElements.h>
#include <Tolvane/convert/PlainArrays.h>
#include <Tolvane/convert/Translators.h>
#include <Tolvane/record/Page.h>

#include <algorithm>
#include <cstdint>
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
    Translators<Record>::read(handle, plug, record);
}

template <typename Record>
void Translators<Record>::read(VDataHandle& handle, VPlug& plug, Record& record) {
    forEachChild<Record>(handle, plug, [&](auto member, VDataHandle& child, VPlug& childPlug) {
        readMember(child, childPlug, record.*member);
    });
}

// Only a record needs the plug of its element. It is asked for by position, not by logical index,
// which the host allows: data is found by the plug's attribute, whatever element the plug is in.
template <typename Element>
void readElement(VDataHandle& handle, VPlug& arrayPlug, unsigned position, Element& element) {
    if constexpr (kIsRecord<Element>) {
        VPlug elementPlug = arrayPlug.elementByLogicalIndex(position, nullptr);
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
    VArrayDataHandle source(handle, nullptr);
    Pelmor::SharedArray<Element> elements = makeElements<Element>(source.elementCount());
    const unsigned read = readElements(source, plug, *elements);
    if constexpr (kIsSetWhole<Element>)
        std::fill(elements->begin() + read, elements->end(), Element());
    array = std::move(elements);
}

// Replaces what `holder` holds by a copy of `value`, which shares its arrays. The copy is complete
// before the holder lets go of its former content.
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
