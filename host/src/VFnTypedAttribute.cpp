#include "host/src/AttributeAccess.h"

#include <OpenVornik/VFnTypedAttribute.h>

using namespace OpenVornik::Internal;

VFnTypedAttribute::VFnTypedAttribute(const VObject& attribute, VStatus* status) {
    if (refused(status, "VFnTypedAttribute::VFnTypedAttribute", attribute)) return;
    m_attribute = ofKind(attribute, kTyped, status);
}

VObject VFnTypedAttribute::create(const VString& longName, const VString& shortName,
                                  VFnData::Type type, const VObject& defaultData, VStatus* status) {
    if (refused(status, "VFnTypedAttribute::create", Nothing(), longName, shortName,
                static_cast<int>(type), defaultData)) {
        return {};
    }
    if (type != VFnData::kString || !defaultData.isNull()) {
        return fail(status, VStatus::kInvalidParameter);
    }
    return make(m_attribute, {kTyped, longName, shortName, Value::kText}, status);
}

VFnData::Type VFnTypedAttribute::attrType(VStatus* status) const {
    return read("VFnTypedAttribute::attrType", m_attribute, status,
                [](const Attribute&) { return VFnData::kString; });
}
