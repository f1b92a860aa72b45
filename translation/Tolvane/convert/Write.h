// Writing to the host: what each kind of value does, the walk over the elements of an array, and
// how the value gets out of a holder. Two statuses are checked, those of taking an element's handle
// in place and of removing an element.
#pragma once

#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <OpenVornik/VString.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/Array.h>
#include <Pelmor/String.h>
#include <Tolvane/convert/Children.h>
#include <Tolvane/convert/Matrix.h>
#include <Tolvane/convert/PlainArrays.h>
#include <Tolvane/convert/Translators.h>
#include <Tolvane/record/Page.h>

#include <stdexcept>

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
    Translators<Record>::write(record, handle, plug);
}

template <typename Record>
void Translators<Record>::write(const Record& record, VDataHandle& handle, VPlug& plug) {
    forEachChild<Record>(
        handle, plug,
        [&](auto member, VDataHandle& child, VPlug& childPlug)
            __attribute__((always_inline)) { writeMember(record.*member, child, childPlug); });
}

// Only a record needs the plug of its element.
template <typename Element>
void writeElement(const Element& element, VDataHandle& handle, VPlug& arrayPlug,
                  unsigned logicalIndex) {
    if constexpr (kIsRecord<Element>) {
        VPlug elementPlug = arrayPlug.elementByLogicalIndex(logicalIndex, nullptr);
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

// Elements are added at the logical indices from 0 on. Then the surplus elements are removed: those
// at the logical indices that follow, up to the builder's count. The host refuses to remove one
// that it lacks.
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
    VArrayDataHandle destination(handle, nullptr);
    if (array->size() == destination.elementCount())
        writeInPlace(*array, destination, plug);
    else
        rebuild(*array, destination, plug);
    destination.setAllClean();
}

// A HostWriter: hands the `Held` in the graph's holder to `write`. Throws
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
