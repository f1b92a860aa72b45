// What a port's data or a graph value holds, as a flat table: one entry for each leaf and for each
// record in an array, by the name of its plug, such as "rig.port[0].pins.names[1]". A place is such
// a name too, and means the entry and all below it.
#pragma once

#include "tests/support/Leaves.h"
#include "tests/support/RecordLeaves.h"

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>

#include <map>
#include <string>
#include <type_traits>

namespace FaultTests {

using Entries = std::map<std::string, std::string>;

// Of the host's data. Attributes that hold nothing have no entries.
Entries entriesOf(VDataHandle handle, const VPlug& plug);

bool isAt(const std::string& path, const std::string& place);
std::string elementPlace(const std::string& array, unsigned index);
// How many elements an array has that starts at index 0 and has no gaps.
unsigned lengthOf(const Entries& entries, const std::string& array);

void erase(Entries& entries, const std::string& place);
// Gives `place` what `source` has at `sourcePlace`, and nothing else.
void replace(Entries& entries, const std::string& place, const Entries& source,
             const std::string& sourcePlace);
void replace(Entries& entries, const std::string& place, const Entries& source);

// A matrix is the identity in new data of the host, and zero in a new record of the graph.
enum class Defaults { OfHost, OfGraph };

// Gives each leaf at `place` its default and takes away the elements of each array there.
void blank(Entries& entries, const std::string& place, Defaults defaults);

constexpr const char* kElement = "element";

inline std::string textOf(const TestSupport::Leaves& leaf) { return leaf.lines().back(); }

template <typename Record>
void add(Entries& entries, const Record& record, const VPlug& plug);

inline void add(Entries& entries, double value, const VPlug& plug) {
    entries[plug.name().asChar()] = textOf(TestSupport::leavesOf(value));
}
inline void add(Entries& entries, const Pelmor::String& text, const VPlug& plug) {
    entries[plug.name().asChar()] = textOf(TestSupport::leavesOf(text));
}
inline void add(Entries& entries, const Math::double4x4& matrix, const VPlug& plug) {
    entries[plug.name().asChar()] = textOf(TestSupport::leavesOf(matrix));
}

template <typename Element>
void add(Entries& entries, const Pelmor::SharedArray<Element>& array, const VPlug& plug) {
    if (!array) {
        entries[plug.name().asChar()] = "no array";
        return;
    }
    unsigned index = 0;
    for (const Element& element : *array) {
        const VPlug elementPlug = plug.elementByLogicalIndex(index++);
        if (elementPlug.isCompound()) entries[elementPlug.name().asChar()] = kElement;
        add(entries, element, elementPlug);
    }
}

template <typename Record>
void add(Entries& entries, const Record& record, const VPlug& plug) {
    Record copy = record;
    unsigned index = 0;
    TestSupport::eachMember(copy,
                            [&](const auto& member) { add(entries, member, plug.child(index++)); });
}

// Of a record or an array of records, as it would stand in the data of `plug`.
template <typename Held>
Entries entriesOf(const Held& value, const VPlug& plug) {
    Entries entries;
    add(entries, value, plug);
    return entries;
}

}  // namespace FaultTests
