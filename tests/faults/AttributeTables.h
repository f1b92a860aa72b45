// The attributes of the ports that are added while calls fail: input ports of arrays of the two
// largest records, and of a struct with one member of each kind.
#pragma once

#include "tests/faults/AttributePlan.h"

#include <string>

namespace FaultTests {

inline AttributeRows operator+(AttributeRows rows, const AttributeRows& more) {
    rows.insert(rows.end(), more.begin(), more.end());
    return rows;
}

inline AttributeRows strings(const std::string& place) { return {{place, "typed 4 rw-a-"}}; }
inline AttributeRows matrices(const std::string& place) { return {{place, "matrix 1 rw-a-"}}; }
inline AttributeRows compound(const std::string& place) { return {{place, "compound -wk--"}}; }

inline AttributeRows objects(const std::string& place) {
    return {{place + ".object0", "generic 0 rw---"}, {place + ".object1", "generic 0 rw---"}};
}

inline AttributeRows transforms(const std::string& place) {
    AttributeRows rows{{place, "compound -wka-"}};
    for (const char* name : {".matrix0", ".matrix1", ".matrix2", ".matrix3", ".matrix4", ".matrix5",
                             ".matrix6", ".matrix7"})
        rows.push_back({place + name, "matrix 1 rw---"});
    return rows;
}

inline AttributeRows namedTransforms(const std::string& place) {
    return compound(place) + strings(place + ".names") + transforms(place + ".transforms");
}

inline AttributeRows pins(const std::string& place) {
    return compound(place) + strings(place + ".names") + matrices(place + ".matrices");
}

inline AttributeRows joints(const std::string& place) {
    return pins(place) + namedTransforms(place + ".namedTransforms");
}

inline AttributeRows controls(const std::string& place) {
    return pins(place) + AttributeRows{{place + ".weights_A", "numeric 14 of 0.000000 rw-a-"}} +
           namedTransforms(place + ".namedTransforms");
}

inline AttributeRows inputsPort() {
    return AttributeRows{{"port", "compound -wkau"}} + pins("port.pins") + joints("port.joints") +
           controls("port.controls0") + controls("port.controls1") + objects("port");
}

inline AttributeRows outputsPort() {
    return AttributeRows{{"port", "compound -wkau"}, {"port.name", "typed 4 rw---"}} +
           pins("port.pins") + namedTransforms("port.namedTransforms0") +
           namedTransforms("port.namedTransforms1") + namedTransforms("port.namedTransforms2") +
           objects("port");
}

// The names of two of the children occur again inside another.
inline AttributeRows rigPort() {
    return {{"port", "compound -wk-u"},
            {"port.names", "typed 4 rw-a-"},
            {"port.root", "matrix 1 rw---"},
            {"port.part", "compound -wk--"},
            {"port.part.weights_A", "numeric 14 of 0.000000 rw---"},
            {"port.part.names", "typed 4 rw---"},
            {"port.mode", "enum of 0 -wka-"},
            {"port.mode.off", "field 0"},
            {"port.mode.on", "field 4464"},
            {"port.objects", "generic 0 rw-a-"},
            {"port.weights_A", "numeric 1 of 0.000000 rw---"},
            {"port.count", "numeric 7 of 0.000000 rw---"}};
}

}  // namespace FaultTests
