// Makes and reads attributes that have other attributes as children, in a fixed order.
// [edit thread]
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VFnAttribute.h>

class OPENVORNIK_API VFnCompoundAttribute : public VFnAttribute {
public:
    VFnCompoundAttribute() noexcept = default;
    // Fails if `attribute` is of another kind.
    explicit VFnCompoundAttribute(const VObject& attribute, VStatus* status = nullptr);

    // The new attribute, which this function set then works on.
    VObject create(const VString& longName, const VString& shortName, VStatus* status = nullptr);

    // Appends `child`. Fails if it is no attribute, has a parent or a node, is this attribute or
    // one above it, or if a child has its name.
    VStatus addChild(const VObject& child);
    unsigned numChildren(VStatus* status = nullptr) const;
    // Fails with the null object past the last child.
    VObject child(unsigned index, VStatus* status = nullptr) const;
};
