#include "host/src/AttributeAccess.h"

#include <OpenVornik/VFnMatrixAttribute.h>

using namespace OpenVornik::Internal;

VFnMatrixAttribute::VFnMatrixAttribute(const VObject& attribute, VStatus* status) {
    if (refused(status, "VFnMatrixAttribute::VFnMatrixAttribute", attribute)) return;
    m_attribute = ofKind(attribute, kMatrix, status);
}

VObject VFnMatrixAttribute::create(const VString& longName, const VString& shortName, Type type,
                                   VStatus* status) {
    if (refused(status, "VFnMatrixAttribute::create", Nothing(), longName, shortName,
                static_cast<int>(type))) {
        return {};
    }
    if (type != kDouble) return fail(status, VStatus::kInvalidParameter);
    return make(m_attribute, {kMatrix, longName, shortName, Value::kMatrix}, status);
}

VFnMatrixAttribute::Type VFnMatrixAttribute::matrixType(VStatus* status) const {
    return read("VFnMatrixAttribute::matrixType", m_attribute, status,
                [](const Attribute&) { return kDouble; });
}
