// The functions that carry one type across the boundary, and the two signatures by which the
// registry knows them. They are declared here; <Tolvane/convert/Read.h> and
// <Tolvane/convert/Write.h> define them.
//
// The host's operations that give a plug's children and elements are not const. So a function that
// is given a port's plug as const copies it once, and everything below works on that copy.
// [evaluation thread]
#pragma once

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/Array.h>

namespace Tolvane {

// Reads the data of `plug`, which is `handle`, into `value`, whose former content is replaced. A
// reader that fails leaves `value` empty and reports nothing. What it throws ends the process, in
// the dispatch that called it.
using HostReader = void (*)(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);

// Writes `value` into the data of `plug`, which is `handle`. A writer that fails throws
// std::runtime_error with the message for the user.
using HostWriter = void (*)(const Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);

// T is a record or, for the two functions that carry arrays, any element that records hold.
template <typename T>
struct Translators {
    // Fills the listed members of `record` from the children of its compound, found by index, and
    // leaves the others as they are. Data that the host cannot supply is taken as the host gives
    // it.
    static void read(VDataHandle& handle, VPlug& plug, T& record);
    // Replaces `array` by a new array of the host's elements, dense and in the host's order, once
    // all of them are read. Where the host's walk ends early, the remaining elements keep their
    // defaults. Without memory for the array the process ends.
    static void readArray(VDataHandle& handle, VPlug& plug, Pelmor::SharedArray<T>& array);

    // HostReaders: each reads a new value and puts it into `value`, which changes only once the new
    // one is complete. Without memory for that the process ends, as a reader has no way to report.
    static void readValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);
    static void readArrayValue(Pelmor::AnyValue& value, VDataHandle& handle, const VPlug& plug);

    // Writes the listed members of `record` to the children of its compound, found by index. Throws
    // what the writers of its arrays throw; what was written before stays.
    static void write(const T& record, VDataHandle& handle, VPlug& plug);
    // Gives the host array the length and the elements of `array`, and marks it clean. A null
    // `array` changes nothing. Throws std::runtime_error, "Cannot get handle on array element !" or
    // "Cannot remove element from array"; the host array then stays dirty, keeps what was written
    // in place, and is not replaced where it was to change its length.
    static void writeArray(const Pelmor::SharedArray<T>& array, VDataHandle& handle, VPlug& plug);
};

}  // namespace Tolvane
