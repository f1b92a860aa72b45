// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VFnAttribute.h>

class VFnData {
public:
    enum Type : int;  // of which the product passes numbers alone
};

class VFnTypedAttribute : public VFnAttribute {
public:
    VFnTypedAttribute();

    VObject create(const VString& longName, const VString& shortName, VFnData::Type type,
                   const VObject& defaultData);
};
