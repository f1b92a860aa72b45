// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VObject.h>
#include <OpenVornik/VStatus.h>
#include <OpenVornik/VString.h>

class VFnAttribute {
public:
    explicit VFnAttribute(const VObject& attribute);
    VFnAttribute(const VFnAttribute& other) = delete;

    VStatus setReadable(bool readable);
    VStatus setWritable(bool writable);
    VStatus setKeyable(bool keyable);
    VStatus setArray(bool array);
    VStatus setEnforcingUniqueName(bool enforcing);

protected:
    VFnAttribute();
};
