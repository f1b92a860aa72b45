// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VDataHandle.h>

class VDataBlock {
public:
    VDataBlock(const VDataBlock& other);

    VDataHandle inputValue(const VPlug& plug);
    VDataHandle outputValue(const VPlug& plug);
    VStatus setClean(const VObject& attribute);
};
