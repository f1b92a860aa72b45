// Makes and reads attributes that hold one number. [edit thread]
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VFnNumericData.h>

class OPENVORNIK_API VFnNumericAttribute : public VFnAttribute {
public:
    VFnNumericAttribute() noexcept = default;
    // Fails if `attribute` is of another kind.
    explicit VFnNumericAttribute(const VObject& attribute, VStatus* status = nullptr);

    // The new attribute, which this function set then works on.
    VObject create(const VString& longName, const VString& shortName, VFnNumericData::Type type,
                   double defaultValue = 0.0, VStatus* status = nullptr);

    VFnNumericData::Type unitType(VStatus* status = nullptr) const;
    double defaultValue(VStatus* status = nullptr) const;
};
