// Reading from the host: the one walk over the children of a record's compound and the one walk
// over the elements of an array, with what each kind of value does. No status of the host is asked
// for; the one that is looked at is that of moving to an array's next element.
#pragma once

#include "convert/Matrix.h"
#include "convert/Members.h"

#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/Array.h>

#include <tuple>
#include <utility>

namespace Rigging::Module {

template <typename Record>
void readMembers(VDataHandle& handle, const VPlug& plug, Record& record);
template <typename Element>
void readArray(VDataHandle& handle, const VPlug& plug, Pelmor::SharedArray<Element>& array);

// What each kind of member or element does with its own data handle and plug.

inline void readValue(VDataHandle& handle, const VPlug&, Math::double4x4& matrix) {
    copyMatrix(handle.asMatrix(), matrix);
}

inline void readValue(VDataHandle& handle, const VPlug&, Pelmor::String& text) {
    text = handle.asString().asChar();
}

inline void readValue(VDataHandle& handle, const VPlug&, double& number) {
    number = handle.asDouble();
}

template <typename Element>
void readValue(VDataHandle& handle, const VPlug& plug, Pelmor::SharedArray<Element>& array) {
    readArray(handle, plug, array);
}

template <typename Record>
void readValue(VDataHandle& handle, const VPlug& plug, Record& record) {
    readMembers(handle, plug, record);
}

// Reads the listed members of `record`, member i from child i; the others keep their values.
template <typename Record>
void readMembers(VDataHandle& handle, const VPlug& plug, Record& record) {
    unsigned index = 0;
    VPlug childPlug;
    VDataHandle childHandle;
    const auto readMember = [&](auto& member) {
        childPlug = plug.child(index++);
        childHandle = handle.child(childPlug);
        readValue(childHandle, childPlug, member);
    };
    std::apply([&](auto... members) { (readMember(record.*members), ...); }, Members<Record>::list);
}

// `count` default elements. It ends the process where there is no memory for them.
template <typename Element>
Pelmor::SharedArray<Element> makeElements(unsigned count) noexcept {
    return Pelmor::makePtr<Pelmor::Array<Element>>(count);
}

// Only a record needs the plug of its element. The element's position stands in for its logical
// index there: the children are found by attribute, whatever element their plug stands in.
template <typename Element>
void readElement(VDataHandle& handle, const VPlug& arrayPlug, unsigned position, Element& element) {
    if constexpr (kIsRecord<Element>)
        readMembers(handle, arrayPlug.elementByLogicalIndex(position), element);
    else
        readValue(handle, arrayPlug, element);
}

// Replaces `array` by a new one of the host's elements, dense and in the host's order. Where the
// walk ends before the host's count is reached, the remaining elements keep their defaults.
template <typename Element>
void readArray(VDataHandle& handle, const VPlug& plug, Pelmor::SharedArray<Element>& array) {
    VArrayDataHandle source(handle);
    const unsigned count = source.elementCount();
    Pelmor::SharedArray<Element> elements = makeElements<Element>(count);
    for (unsigned position = 0; position < count; ++position) {
        VDataHandle elementHandle = source.inputValue();
        readElement(elementHandle, plug, position, (*elements)[position]);
        if (source.next().error()) break;
    }
    array = std::move(elements);
}

}  // namespace Rigging::Module
