// Values whose arrays have given lengths, kind by kind.
#pragma once

#include "tests/convert/ExpectedAllocations.h"
#include "tests/support/RecordLeaves.h"

#include <Pelmor/Array.h>

namespace TestSupport {

inline void size(double&, const Lengths&) {}
inline void size(Math::double4x4&, const Lengths&) {}

// Fifteen characters, or one more.
inline void size(Pelmor::String& text, const Lengths& lengths) {
    text = lengths.longTexts ? "sixteen letters." : "fifteen letters";
}

inline Allocations lengthOf(const Pelmor::SharedArray<Pelmor::String>&, const Lengths& lengths) {
    return lengths.names;
}
inline Allocations lengthOf(const Pelmor::SharedArray<Math::double4x4>&, const Lengths& lengths) {
    return lengths.matrices;
}
inline Allocations lengthOf(const Pelmor::SharedArray<double>&, const Lengths& lengths) {
    return lengths.weights;
}
inline Allocations lengthOf(const Pelmor::SharedArray<Core::Transform::Transform>&,
                            const Lengths& lengths) {
    return lengths.transforms;
}

template <typename Element>
Pelmor::SharedArray<Element> sizedElements(Allocations count, const Lengths& lengths = {});

template <typename Element>
void size(Pelmor::SharedArray<Element>& array, const Lengths& lengths) {
    array = sizedElements<Element>(lengthOf(array, lengths), lengths);
}

template <typename Record>
void size(Record& record, const Lengths& lengths) {
    eachMember(record, [&](auto& member) { size(member, lengths); });
}

template <typename Record>
Record sized(const Lengths& lengths) {
    Record record;
    size(record, lengths);
    return record;
}

template <typename Element>
Pelmor::SharedArray<Element> sizedElements(Allocations count, const Lengths& lengths) {
    auto array = Pelmor::makePtr<Pelmor::Array<Element>>(count);
    for (Element& element : *array) size(element, lengths);
    return array;
}

}  // namespace TestSupport
