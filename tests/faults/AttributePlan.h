// The host calls of giving a port its attribute.
#pragma once

#include "tests/faults/PlannedCalls.h"

#include <OpenVornik/VObject.h>

#include <ostream>
#include <string>
#include <vector>

namespace FaultTests {

// One row for each attribute and each field of an enum, those of a compound or an enum behind it.
struct AttributeRow {
    // Such as "port.pins.names".
    std::string place;
    // Such as "typed 4 rw-a-": the kind and its flags, readable, writable, keyable, array and
    // enforcing a unique name; or "field 1".
    std::string text;

    friend bool operator==(const AttributeRow& a, const AttributeRow& b) {
        return a.place == b.place && a.text == b.text;
    }
    friend std::ostream& operator<<(std::ostream& out, const AttributeRow& row) {
        return out << row.place << ": " << row.text;
    }
};

using AttributeRows = std::vector<AttributeRow>;

AttributeRows rowsOf(const VObject& attribute);

bool isDirectlyIn(const AttributeRow& row, const std::string& place);

// Stands for the child behind the last, which the last look at the number of children is about.
constexpr const char* kNoChild = "no child";

// For a node that takes the attribute.
PlannedCalls planOfAdding(const AttributeRows& rows);

}  // namespace FaultTests
