// Writes the library's values into the host's data. Each `write` throws Failure if the host does
// not take what it is given; an array is then as it was.
#pragma once

#include "tests/check/libraries/plain/Failure.h"
#include "tests/check/libraries/plain/Fault.h"
#include "tests/check/libraries/plain/Records.h"

#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

namespace Plain {

inline void write(VDataHandle& place, VPlug&, const double& number) { place.setDouble(number); }

inline void write(VDataHandle& place, VPlug&, const Matrix& matrix) {
    VMatrix written;
    for (unsigned i = 0; i < 16; ++i) written[i / 4][i % 4] = matrix.numbers[i];
    place.setMatrix(written);
}

inline void write(VDataHandle& place, VPlug&, const std::string& text) {
    if (fault("values/empty-texts") && text.empty()) return;
    place.setString(text.c_str());
}

inline std::vector<unsigned> indicesOf(VArrayDataHandle& array) {
    VStatus status;
    std::vector<unsigned> indices(array.elementCount(&status));
    require(status, "counting elements");
    for (unsigned& index : indices) {
        if (&index != indices.data()) require(array.next(), "going to the next element");
        index = array.elementIndex(&status);
        require(status, "asking for the index of an element");
    }
    return indices;
}

inline VDataHandle addElement(VArrayDataBuilder& builder, unsigned index) {
    VStatus status;
    const VDataHandle element = builder.addElement(index, &status);
    if (fault("failing-hosts/writing") && status.error()) std::abort();
    if (fault("failing-hosts/writing-pairs") && status.error()) {
        const VDataHandle again = builder.addElement(index, &status);
        if (status.error()) std::abort();
        return again;
    }
    require(status, "adding an element");
    return element;
}

// The elements get the logical indices from 0 on, and no others are left.
template <typename Element>
void write(VDataHandle& place, VPlug& plug, const std::vector<Element>& elements) {
    VStatus status;
    VArrayDataHandle array(place, &status);
    require(status, "finding an array");
    const std::vector<unsigned> former = indicesOf(array);
    std::size_t count = elements.size();
    if (fault("values/empty-arrays") && count == 0) return;
    if (fault("values/same-length") && count > 0 && count == former.size()) return;
    if (fault("values/growing") && !former.empty()) count = std::min(count, former.size());

    VArrayDataBuilder builder = array.builder(&status);
    require(status, "changing an array");
    for (unsigned i = 0; i < count; ++i) {
        VDataHandle element = addElement(builder, i);
        VPlug elementPlug = plug.elementByLogicalIndex(i, &status);
        require(status, "finding the plug of an element");
        write(element, elementPlug, elements[i]);
    }
    for (std::size_t i = count; fault("values/sparse-arrays: output") && i < former.size(); ++i)
        builder.removeElement(static_cast<unsigned>(i));
    for (const unsigned index : former) {
        if (fault("values/sparse-arrays: output")) break;
        if (index < count || (fault("values/shrinking") && count > 0)) continue;
        require(builder.removeElement(index), "removing an element");
    }
    const VStatus set = array.set(builder);
    if (!fault("failing-hosts/unnoticed-writing")) require(set, "replacing an array");
}

template <typename Member>
void writeChild(VDataHandle& place, VPlug& plug, unsigned index, const Member& member) {
    VStatus status;
    VPlug childPlug = plug.child(index, &status);
    require(status, "finding the plug of a child");
    VDataHandle child = place.child(childPlug);
    if (child.isNull()) throw Failure("finding the data of a child failed");
    write(child, childPlug, member);
}

// Member i to child i.
template <typename Record>
auto write(VDataHandle& place, VPlug& plug, const Record& record)
    -> decltype(Record::members(record), void()) {
    unsigned index = 0;
    std::apply([&](const auto&... member) { (writeChild(place, plug, index++, member), ...); },
               Record::members(record));
}

}  // namespace Plain
