// How far a write to the host came. A part is what is written in one go: a value in place, or an
// array that changes its length.
#pragma once

#include "tests/faults/CallFault.h"

#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VPlug.h>

#include <string>
#include <vector>

namespace FaultTests {

struct HostTree {
    // Empty for compounds, arrays, and objects, of which the host holds nothing.
    std::string leaf;
    bool isArray = false;
    std::vector<HostTree> parts;

    friend bool operator==(const HostTree& a, const HostTree& b) {
        return a.leaf == b.leaf && a.parts == b.parts;
    }
};

HostTree hostTreeOf(VDataHandle handle, VPlug plug);

// A letter for each part, in the order of writing: "n" for the new value, "o" for the former one,
// "?" for anything else. The former values differ from the new ones.
std::string progressOf(const HostTree& now, const HostTree& former, const HostTree& written);

// The same where the first `calls` of the calls of a write were made: a builder's elements are
// those of the array when it is given back.
std::string progressAfter(std::size_t calls, const Operations& plan, std::size_t parts);

}  // namespace FaultTests
