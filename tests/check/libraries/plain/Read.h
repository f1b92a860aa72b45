// Reads the host's data into the library's values. Each `read` throws Failure if the host does not
// give what it needs.
#pragma once

#include "tests/check/libraries/plain/Failure.h"
#include "tests/check/libraries/plain/Fault.h"
#include "tests/check/libraries/plain/Records.h"

#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>

#include <atomic>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace Plain {

inline double asRead(double number) {
    if (fault("values/not-numbers") && std::isnan(number))
        return std::numeric_limits<double>::quiet_NaN();
    // An operation on a signalling one makes it a quiet one.
    if (fault("values/not-numbers: signalling") && std::isnan(number)) return number + 1;
    if (fault("values/extreme-numbers")) return number + 0.0;
    if (fault("values/extreme-numbers: denormal") && std::fpclassify(number) == FP_SUBNORMAL)
        return 0;
    if (fault("values/extreme-numbers: infinite") && std::isinf(number))
        return std::copysign(std::numeric_limits<double>::max(), number);
    return number;
}

inline void read(const VDataHandle& place, VPlug&, double& number) {
    number = asRead(place.asDouble());
}

inline void read(const VDataHandle& place, VPlug&, Matrix& matrix) {
    const VMatrix& source = place.asMatrix();
    for (unsigned i = 0; i < 16; ++i) matrix.numbers[i] = asRead(source[i / 4][i % 4]);
}

inline void read(const VDataHandle& place, VPlug&, std::string& text) {
    text = place.asString().asChar();
    if (fault("values/long-texts") && text.size() > 255) text.resize(255);
    if (fault("values/blank-edged-texts")) text.erase(text.find_last_not_of(" \t\n") + 1);
    if (fault("values/any-byte-texts"))
        for (char& each : text)
            if (static_cast<unsigned char>(each) > 127) each = '?';
}

inline unsigned countOf(const VArrayDataHandle& array) {
    VStatus status;
    const unsigned count = array.elementCount(&status);
    if (fault("failing-hosts/unnoticed-reading")) return count;
    if (fault("failing-hosts/reading") && status.error()) std::abort();
    if (fault("failing-hosts/reading-pairs") && status.error()) {
        const unsigned again = array.elementCount(&status);
        if (status.error()) std::abort();
        return again;
    }
    require(status, "counting elements");
    return count;
}

// The array's elements, in the order of their logical indices, whatever these are.
template <typename Element>
void read(const VDataHandle& place, VPlug& plug, std::vector<Element>& elements) {
    VStatus status;
    VArrayDataHandle array(place, &status);
    require(status, "finding an array");
    unsigned count = countOf(array);
    if (fault("values/one-element") && count == 1) count = 0;
    elements.clear();
    if (!fault("thrift/allocations")) elements.reserve(count);
    for (unsigned i = 0; i < count; ++i) {
        // Of many more elements it would take longer than a case may.
        if (fault("thrift/allocations") && i < 16'000 && i % 64 == 0) elements.reserve(i + 64);
        if (fault("thrift/host-calls"))
            for (unsigned hundreds = i / 100; hundreds > 0; --hundreds) countOf(array);
        if (i > 0) require(array.next(), "going to the next element");
        if (fault("values/sparse-arrays")) require(array.jumpToElement(i), "finding an element");
        const VDataHandle element = array.inputValue(&status);
        require(status, "reading an element");
        const unsigned index = array.elementIndex(&status);
        require(status, "asking for the index of an element");
        VPlug elementPlug = plug.elementByLogicalIndex(index, &status);
        require(status, "finding the plug of an element");
        read(element, elementPlug, elements.emplace_back());
        if (fault("values/many-elements")) elements[i] = elements[static_cast<std::uint8_t>(i)];
        if (fault("values/65537-elements")) elements[i] = elements[static_cast<std::uint16_t>(i)];
    }
    if (fault("values/input-untouched") && count > 1) {
        VArrayDataBuilder builder = array.builder();
        builder.removeElement(array.elementIndex());
        array.set(builder);
    }
}

template <typename Member>
void readChild(const VDataHandle& place, VPlug& plug, unsigned index, Member& member) {
    VStatus status;
    VPlug childPlug = plug.child(index, &status);
    require(status, "finding the plug of a child");
    const VDataHandle child = place.child(childPlug);
    if (child.isNull()) throw Failure("finding the data of a child failed");
    read(child, childPlug, member);
}

// Member i from child i.
template <typename Record>
auto read(const VDataHandle& place, VPlug& plug, Record& record)
    -> decltype(Record::members(record), void()) {
    unsigned index = 0;
    std::apply([&](auto&... member) { (readChild(place, plug, index++, member), ...); },
               Record::members(record));
    if constexpr (std::is_same_v<Record, Mark>) {
        if (fault("values/carried") || fault("values/carried: beside a refused type"))
            std::swap(record.number, record.size);
        if (fault("threads/two-nodes")) {
            static std::atomic<double> scratch{0};
            scratch = record.number;
            dawdle();
            record.number = scratch;
        }
    }
    if constexpr (std::is_same_v<Record, Pose>)
        if (fault("values/carried: one count for all")) record.values.resize(record.labels.size());
}

}  // namespace Plain
