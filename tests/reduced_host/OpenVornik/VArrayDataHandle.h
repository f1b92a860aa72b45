// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VArrayDataBuilder.h>

class VArrayDataHandle {
public:
    explicit VArrayDataHandle(const VDataHandle& handle, VStatus* status);
    VArrayDataHandle(const VArrayDataHandle& other) = delete;

    unsigned elementCount();
    VDataHandle inputValue();
    VDataHandle outputValue(VStatus* status);
    VStatus next();
    VArrayDataBuilder builder();
    VStatus set(const VArrayDataBuilder& builder);
    VStatus setAllClean();
};
