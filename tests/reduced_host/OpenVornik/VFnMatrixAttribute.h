// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VFnAttribute.h>

class VFnMatrixAttribute : public VFnAttribute {
public:
    enum Type : int;

    VFnMatrixAttribute();

    VObject create(const VString& longName, const VString& shortName, Type type);
};
