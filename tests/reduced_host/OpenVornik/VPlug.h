// What the product may ask of a host; a studio's SDK has at least this.
// Whoever includes it says what PLUG_CONST is: nothing or, as in some SDKs, const.
#pragma once

#include <OpenVornik/VObject.h>
#include <OpenVornik/VStatus.h>

class VPlug {
public:
    VPlug(const VPlug& other);
    VPlug& operator=(const VPlug& other);
    ~VPlug();

    VPlug child(unsigned index, VStatus* status) PLUG_CONST;
    VPlug elementByLogicalIndex(unsigned logicalIndex, VStatus* status) PLUG_CONST;
    VObject attribute() PLUG_CONST;
};
