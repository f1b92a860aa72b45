// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VFnAttribute.h>

class VFnGenericAttribute : public VFnAttribute {
public:
    VFnGenericAttribute();

    VObject create(const VString& longName, const VString& shortName);
};
