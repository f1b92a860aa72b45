// What the product may ask of a host; a studio's SDK has at least this.
#pragma once

#include <OpenVornik/VFnAttribute.h>

class VFnCompoundAttribute : public VFnAttribute {
public:
    VFnCompoundAttribute();

    VObject create(const VString& longName, const VString& shortName);
    VStatus addChild(const VObject& child);
    unsigned numChildren();
    VObject child(unsigned index);
};
