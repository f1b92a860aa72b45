// Fills the graph's records and arrays with Numbers, and tells their Leaves. The members stand here
// in the order of the children of the host's attributes; the objects, which have none that the
// plugin uses, are left out.
#pragma once

#include "tests/support/Leaves.h"
#include "tests/support/Numbers.h"
#include "types/Records.h"

#include <Pelmor/Array.h>
#include <Pelmor/String.h>

namespace TestSupport {

template <typename Visit>
void eachMember(Core::Transform::Transform& record, Visit visit) {
    visit(record.matrix0);
    visit(record.matrix1);
    visit(record.matrix2);
    visit(record.matrix3);
    visit(record.matrix4);
    visit(record.matrix5);
    visit(record.matrix6);
    visit(record.matrix7);
}

template <typename Visit>
void eachMember(Rigging::Module::NamedTransforms& record, Visit visit) {
    visit(record.names);
    visit(record.transforms);
}

template <typename Visit>
void eachMember(Rigging::Module::Pins& record, Visit visit) {
    visit(record.names);
    visit(record.matrices);
}

template <typename Visit>
void eachMember(Rigging::Module::InputsJoints& record, Visit visit) {
    visit(record.names);
    visit(record.matrices);
    visit(record.namedTransforms);
}

template <typename Visit>
void eachMember(Rigging::Module::InputsControls& record, Visit visit) {
    visit(record.names);
    visit(record.matrices);
    visit(record.weights);
    visit(record.namedTransforms);
}

template <typename Visit>
void eachMember(Rigging::Module::Inputs& record, Visit visit) {
    visit(record.pins);
    visit(record.joints);
    visit(record.controls0);
    visit(record.controls1);
}

template <typename Visit>
void eachMember(Rigging::Module::Outputs& record, Visit visit) {
    visit(record.name);
    visit(record.pins);
    visit(record.namedTransforms0);
    visit(record.namedTransforms1);
    visit(record.namedTransforms2);
}

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
    Record copy = record;
    eachMember(copy, [&](const auto& member) { append(leaves, member); });
}

template <typename T>
Leaves leavesOf(const T& value) {
    Leaves leaves;
    append(leaves, value);
    return leaves;
}

}  // namespace TestSupport
