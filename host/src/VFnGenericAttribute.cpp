#include "host/src/AttributeAccess.h"

#include <OpenVornik/VFnGenericAttribute.h>

using namespace OpenVornik::Internal;

VFnGenericAttribute::VFnGenericAttribute(const VObject& attribute, VStatus* status) {
    if (refused(status, "VFnGenericAttribute::VFnGenericAttribute", attribute)) return;
    m_attribute = ofKind(attribute, kGeneric, status);
}

VObject VFnGenericAttribute::create(const VString& longName, const VString& shortName,
                                    VStatus* status) {
    if (refused(status, "VFnGenericAttribute::create", Nothing(), longName, shortName)) return {};
    return make(m_attribute, {kGeneric, longName, shortName, Value::kNothing}, status);
}

VStatus VFnGenericAttribute::addDataAccept(VFnData::Type type) {
    const VStatus answer =
        refusal("VFnGenericAttribute::addDataAccept", m_attribute, static_cast<int>(type));
    if (answer.error()) return answer;
    Attribute* attribute = attributeOf(m_attribute);
    return attribute ? attribute->accept(type) : VStatus::kInvalidParameter;
}

unsigned VFnGenericAttribute::numAcceptedTypes(VStatus* status) const {
    return read("VFnGenericAttribute::numAcceptedTypes", m_attribute, status,
                [](const Attribute& attribute) {
                    return static_cast<unsigned>(attribute.acceptedTypes().size());
                });
}
