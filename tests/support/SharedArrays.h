// Finds the shared arrays and the objects that a record or an array of records holds, at any depth.
#pragma once

#include "tests/support/RecordLeaves.h"

#include <Pelmor/Array.h>

#include <cstdint>
#include <vector>

namespace TestSupport {

struct SharedArrayState {
    const void* address;
    std::uint64_t useCount;
    std::uint64_t size;
    std::uint64_t capacity;
};

inline void collect(std::vector<SharedArrayState>&, double&) {}
inline void collect(std::vector<SharedArrayState>&, Pelmor::String&) {}
inline void collect(std::vector<SharedArrayState>&, Math::double4x4&) {}

template <typename Record>
void collect(std::vector<SharedArrayState>& states, Record& record);

template <typename Element>
void collect(std::vector<SharedArrayState>& states, Pelmor::SharedArray<Element>& array) {
    if (!array) {
        states.push_back({});
        return;
    }
    states.push_back({array.get(), array.useCount(), array->size(), array->capacity()});
    for (Element& element : *array) collect(states, element);
}

template <typename Record>
void collect(std::vector<SharedArrayState>& states, Record& record) {
    eachMember(record, [&](auto& member) { collect(states, member); });
}

template <typename T>
std::vector<SharedArrayState> sharedArraysOf(T& value) {
    std::vector<SharedArrayState> states;
    collect(states, value);
    return states;
}

template <typename T, typename Visit>
void eachObject(T& value, const Visit& visit) {
    using Type = std::remove_const_t<T>;
    if constexpr (kIsObject<Type>)
        visit(value);
    else if constexpr (kIsArray<Type>)
        for (auto& element : *value) eachObject(element, visit);
    else if constexpr (!kIsPlain<Type>)
        eachMemberAndObject(value, [&](auto& member) { eachObject(member, visit); });
}

}  // namespace TestSupport
