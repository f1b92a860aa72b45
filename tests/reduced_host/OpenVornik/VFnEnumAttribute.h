// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VFnAttribute.h>

class VFnEnumAttribute : public VFnAttribute {
public:
    VFnEnumAttribute();

    VObject create(const VString& longName, const VString& shortName, short defaultValue);
    VStatus addField(const VString& name, short value);
};
