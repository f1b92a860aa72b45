// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VFnAttribute.h>

class VFnNumericData {
public:
    enum Type : int;
};

class VFnNumericAttribute : public VFnAttribute {
public:
    VFnNumericAttribute();

    VObject create(const VString& longName, const VString& shortName, VFnNumericData::Type type,
                   double defaultValue);
};
