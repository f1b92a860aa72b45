// Makes and reads attributes that hold a 4 by 4 matrix, which defaults to the identity.
// [edit thread]
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VFnAttribute.h>

class OPENVORNIK_API VFnMatrixAttribute : public VFnAttribute {
public:
    VFnMatrixAttribute() noexcept = default;
    // Fails if `attribute` is of another kind.
    explicit VFnMatrixAttribute(const VObject& attribute, VStatus* status = nullptr);

    // What the matrix is kept as. Only double precision is stored here: `create` refuses kFloat.
    enum Type { kFloat = 0, kDouble = 1 };

    // The new attribute, which this function set then works on.
    VObject create(const VString& longName, const VString& shortName, Type type = kDouble,
                   VStatus* status = nullptr);

    Type matrixType(VStatus* status = nullptr) const;
};
