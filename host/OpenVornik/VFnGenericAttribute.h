// Makes attributes that hold data of whichever types they were told to accept. One that accepts
// none holds nothing. [edit thread]
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VFnData.h>

class OPENVORNIK_API VFnGenericAttribute : public VFnAttribute {
public:
    VFnGenericAttribute() noexcept = default;
    // Fails if `attribute` is of another kind.
    explicit VFnGenericAttribute(const VObject& attribute, VStatus* status = nullptr);

    // The new attribute, which this function set then works on.
    VObject create(const VString& longName, const VString& shortName, VStatus* status = nullptr);

    VStatus addDataAccept(VFnData::Type type);
    unsigned numAcceptedTypes(VStatus* status = nullptr) const;
};
