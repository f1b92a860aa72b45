// Reading from the host: the one walk over the children of a record's compound and the one walk
// over the elements of an array, with what each kind of value does. No status of the host is asked
// for; the one that is looked at is that of moving to an array's next element.
#pragma once

#include "convert/FetchAhead.h"
#include "convert/Matrix.h"
#include "convert/Members.h"

#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/Array.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <type_traits>
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
    std::apply(
        [&](auto first, auto... others) {
            VPlug childPlug = plug.child(0);
            VDataHandle childHandle = handle.child(childPlug);
            readValue(childHandle, childPlug, record.*first);
            unsigned index = 0;
            ((childPlug = plug.child(++index), childHandle = handle.child(childPlug),
              readValue(childHandle, childPlug, record.*others)),
             ...);
        },
        Members<Record>::list);
}

// Whether reading a value sets every byte of it. Nobody can tell then whether an element had a
// default before, and giving it one would be a second pass over the array.
template <typename T, typename = void>
inline constexpr bool kIsSetWhole = std::is_trivially_copyable_v<T>;

template <typename MemberList>
inline constexpr std::size_t kBytesSet = 0;
template <typename Record, typename... Values>
inline constexpr std::size_t kBytesSet<const std::tuple<Values Record::*...>> =
    ((kIsSetWhole<Values> ? sizeof(Values) : 0) + ...);

template <typename Record>
inline constexpr bool kIsSetWhole<Record, std::enable_if_t<kIsRecord<Record>>> =
    kBytesSet<decltype(Members<Record>::list)> == sizeof(Record);

// `count` elements, default unless reading sets them whole. It ends the process where there is no
// memory for them.
template <typename Element>
Pelmor::SharedArray<Element> makeElements(unsigned count) noexcept {
    if constexpr (kIsSetWhole<Element>)
        return Pelmor::makePtr<Pelmor::Array<Element>>(count, Pelmor::Unset());
    else
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

// Reads the host's elements in the host's order, as many as `elements` has. Returns how many there
// were before the walk ended.
template <typename Element>
unsigned readElements(VArrayDataHandle& source, const VPlug& plug,
                      Pelmor::Array<Element>& elements) {
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

// Replaces `array` by a new one of the host's elements, dense and in the host's order. Where the
// walk ends before the host's count is reached, the remaining elements have their defaults.
template <typename Element>
void readArray(VDataHandle& handle, const VPlug& plug, Pelmor::SharedArray<Element>& array) {
    VArrayDataHandle source(handle);
    Pelmor::SharedArray<Element> elements = makeElements<Element>(source.elementCount());
    const unsigned read = readElements(source, plug, *elements);
    if constexpr (kIsSetWhole<Element>)
        std::fill(elements->begin() + read, elements->end(), Element());
    array = std::move(elements);
}

}  // namespace Rigging::Module
