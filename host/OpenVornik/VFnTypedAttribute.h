// Makes and reads attributes that hold one piece of typed data. [edit thread]
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VFnData.h>

class OPENVORNIK_API VFnTypedAttribute : public VFnAttribute {
public:
    VFnTypedAttribute() noexcept = default;
    // Fails if `attribute` is of another kind.
    explicit VFnTypedAttribute(const VObject& attribute, VStatus* status = nullptr);

    // The new attribute, which this function set then works on. The null object as default data
    // stands for the type's own default, an empty string; no other default is taken.
    VObject create(const VString& longName, const VString& shortName, VFnData::Type type,
                   const VObject& defaultData = VObject::kNullObj, VStatus* status = nullptr);

    VFnData::Type attrType(VStatus* status = nullptr) const;
};
