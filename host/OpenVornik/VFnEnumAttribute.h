// Makes and reads attributes whose value is one of a list of named 16-bit values. [edit thread]
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VFnAttribute.h>

class OPENVORNIK_API VFnEnumAttribute : public VFnAttribute {
public:
    VFnEnumAttribute() noexcept = default;
    // Fails if `attribute` is of another kind.
    explicit VFnEnumAttribute(const VObject& attribute, VStatus* status = nullptr);

    // The new attribute, which this function set then works on.
    VObject create(const VString& longName, const VString& shortName, short defaultValue = 0,
                   VStatus* status = nullptr);

    // Appends a field. Fails if the attribute has a field of that name.
    VStatus addField(const VString& name, short value);
    unsigned numFields(VStatus* status = nullptr) const;
    // In the order in which they were added; fail with an empty name or 0 past the last.
    VString fieldName(unsigned index, VStatus* status = nullptr) const;
    short fieldValue(unsigned index, VStatus* status = nullptr) const;
    short defaultValue(VStatus* status = nullptr) const;
};
