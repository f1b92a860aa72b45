// Short ways to fill arrays of doubles and to see what they hold.
#pragma once

#include <OpenVornik/VArrayDataHandle.h>

#include <utility>
#include <vector>

// Logical index and value of each element, in order.
using Elements = std::vector<std::pair<unsigned, double>>;

inline void fill(const VDataHandle& array, const Elements& elements) {
    VArrayDataHandle handle(array);
    VArrayDataBuilder builder = handle.builder();
    for (const auto& [index, value] : elements) builder.addElement(index).setDouble(value);
    handle.set(builder);
}

inline Elements elementsOf(const VDataHandle& array) {
    Elements elements;
    VArrayDataHandle handle(array);
    for (unsigned i = 0; i < handle.elementCount(); ++i) {
        elements.emplace_back(handle.elementIndex(), handle.outputValue().asDouble());
        handle.next();
    }
    return elements;
}
