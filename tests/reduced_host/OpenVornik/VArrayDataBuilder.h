// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VDataHandle.h>

class VArrayDataBuilder {
public:
    VArrayDataBuilder(const VArrayDataBuilder& other) = delete;

    VDataHandle addElement(unsigned logicalIndex);
    VStatus removeElement(unsigned logicalIndex);
    unsigned elementCount();
};
