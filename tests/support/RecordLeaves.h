// Fills the graph's records and arrays with Numbers, and tells their Leaves. The objects, which
// stay in the graph, are left out.
#pragma once

#include "tests/support/Leaves.h"
#include "tests/support/Numbers.h"
#include "tests/support/RecordTrees.h"

#include <Pelmor/Array.h>
#include <Pelmor/String.h>

namespace TestSupport {

inline void number(Numbers& numbers, double& value) { value = numbers.number(); }
inline void number(Numbers& numbers, Pelmor::String& text) { text = numbers.text().c_str(); }
inline void number(Numbers& numbers, Math::double4x4& matrix) { numbers.fill(matrix.rows); }

template <typename Element>
void number(Numbers& numbers, Pelmor::SharedArray<Element>& array) {
    array = Pelmor::makePtr<Pelmor::Array<Element>>(numbers.length());
    for (Element& element : *array) number(numbers, element);
}

template <typename Record>
void number(Numbers& numbers, Record& record) {
    eachMember(record, [&](auto& member) { number(numbers, member); });
}

template <typename T>
T numbered(Numbers numbers = Numbers()) {
    T value{};
    number(numbers, value);
    return value;
}

// An array of `count` elements whose leaves are numbered from `first` on.
template <typename Element>
Pelmor::SharedArray<Element> numberedElements(unsigned count, unsigned first = 1) {
    auto array = Pelmor::makePtr<Pelmor::Array<Element>>(count);
    Numbers numbers(first);
    for (Element& element : *array) number(numbers, element);
    return array;
}

inline void append(Leaves& leaves, double value) { leaves.addNumber(value); }
inline void append(Leaves& leaves, const Pelmor::String& text) { leaves.addText(text.c_str()); }
inline void append(Leaves& leaves, const Math::double4x4& matrix) { leaves.addMatrix(matrix.rows); }

template <typename Element>
void append(Leaves& leaves, const Pelmor::SharedArray<Element>& array) {
    leaves.addLength(array->size());
    for (const Element& element : *array) append(leaves, element);
}

template <typename Record>
void append(Leaves& leaves, const Record& record) {
    eachMember(record, [&](const auto& member) { append(leaves, member); });
}

template <typename T>
Leaves leavesOf(const T& value) {
    Leaves leaves;
    append(leaves, value);
    return leaves;
}

}  // namespace TestSupport
