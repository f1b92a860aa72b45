// How often reading and writing take memory, as formulas of the numbers of elements.
//
// On the graph's side an array and its control block are one allocation, its storage is another
// where it has elements, and text is one where it is longer than fifteen characters. On the host's
// side an array has two lists, of indices and of elements, which double as they grow; each element
// is a block of its own; and text longer than fifteen characters has storage of its own.
#pragma once

#include "types/Records.h"

#include <cstdint>

namespace TestSupport {

using Allocations = std::uint64_t;

// How many elements the arrays of each kind have.
struct Lengths {
    Allocations names = 0;
    Allocations matrices = 0;
    Allocations weights = 0;
    Allocations transforms = 0;
    // Longer than fifteen characters.
    bool longTexts = false;
};

// How many arrays of each kind a record has, with those of the records in it, and how many texts
// that stand alone.
struct ArraysOf {
    Allocations names = 0;
    Allocations matrices = 0;
    Allocations weights = 0;
    Allocations transforms = 0;
    Allocations texts = 0;
};

template <typename Record>
constexpr ArraysOf kArraysOf{};
template <>
inline constexpr ArraysOf kArraysOf<Rigging::Module::NamedTransforms>{1, 0, 0, 1, 0};
template <>
inline constexpr ArraysOf kArraysOf<Rigging::Module::Pins>{1, 1, 0, 0, 0};
template <>
inline constexpr ArraysOf kArraysOf<Rigging::Module::InputsJoints>{2, 1, 0, 1, 0};
template <>
inline constexpr ArraysOf kArraysOf<Rigging::Module::InputsControls>{2, 1, 1, 1, 0};
template <>
inline constexpr ArraysOf kArraysOf<Rigging::Module::Inputs>{7, 4, 2, 3, 0};
template <>
inline constexpr ArraysOf kArraysOf<Rigging::Module::Outputs>{4, 1, 0, 3, 1};

// The sum of `cost` over the lengths of all arrays of a record.
template <typename Cost>
Allocations sumOver(const ArraysOf& arrays, const Lengths& lengths, Cost cost) {
    return arrays.names * cost(lengths.names) + arrays.matrices * cost(lengths.matrices) +
           arrays.weights * cost(lengths.weights) + arrays.transforms * cost(lengths.transforms);
}

inline Allocations longTexts(const ArraysOf& arrays, const Lengths& lengths) {
    return lengths.longTexts ? arrays.names * lengths.names + arrays.texts : 0;
}

// Reading.

inline Allocations newArray(Allocations length) { return length == 0 ? 1 : 2; }

inline Allocations newRecord(const ArraysOf& arrays) {
    return arrays.names + arrays.matrices + arrays.weights + arrays.transforms;
}

inline Allocations readMembers(const ArraysOf& arrays, const Lengths& lengths) {
    return sumOver(arrays, lengths, newArray) + longTexts(arrays, lengths);
}

// The last is the record that the holder gets.
inline Allocations readRecord(const ArraysOf& arrays, const Lengths& lengths) {
    return newRecord(arrays) + readMembers(arrays, lengths) + 1;
}

inline Allocations readRecords(const ArraysOf& arrays, const Lengths& lengths, Allocations count) {
    return newArray(count) + count * (newRecord(arrays) + readMembers(arrays, lengths));
}

// Writing.

// How often a list with room for `from` grows until it has room for `to`.
inline Allocations growths(Allocations from, Allocations to) {
    Allocations count = 0;
    for (Allocations room = from; room < to; room = room == 0 ? 1 : 2 * room) ++count;
    return count;
}

// A builder is an allocation, and so is each of its lists, which begin as copies of the array's. It
// takes a block for each element that is written, an old one or a new one. The array then makes a
// list of the elements, and one of their indices where it has no room for them.
inline Allocations changeLength(Allocations from, Allocations to) {
    if (from == to) return 0;
    const Allocations builder = 1 + (from > 0 ? 2 : 0) + 2 * growths(from, to) + to;
    return builder + (to > 0 ? 1 : 0) + (to > from ? 1 : 0);
}

// Each long text takes one for the way to the host, in all cases. In place the host has its storage
// already.
inline Allocations writeInPlace(const ArraysOf& arrays, const Lengths& lengths) {
    return longTexts(arrays, lengths);
}

inline Allocations writeToEmpty(const ArraysOf& arrays, const Lengths& lengths) {
    const auto grow = [](Allocations length) { return changeLength(0, length); };
    return sumOver(arrays, lengths, grow) + 2 * longTexts(arrays, lengths);
}

}  // namespace TestSupport
