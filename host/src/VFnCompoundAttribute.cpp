#include "host/src/AttributeAccess.h"

#include <OpenVornik/VFnCompoundAttribute.h>

using namespace OpenVornik::Internal;

VFnCompoundAttribute::VFnCompoundAttribute(const VObject& attribute, VStatus* status) {
    if (refused(status, "VFnCompoundAttribute::VFnCompoundAttribute", attribute)) return;
    m_attribute = ofKind(attribute, kCompound, status);
}

VObject VFnCompoundAttribute::create(const VString& longName, const VString& shortName,
                                     VStatus* status) {
    if (refused(status, "VFnCompoundAttribute::create", Nothing(), longName, shortName)) return {};
    return make(m_attribute, {kCompound, longName, shortName, Value::kCompound}, status);
}

VStatus VFnCompoundAttribute::addChild(const VObject& child) {
    const VStatus answer = refusal("VFnCompoundAttribute::addChild", m_attribute, child);
    if (answer.error()) return answer;
    Attribute* attribute = attributeOf(m_attribute);
    Attribute* added = attributeOf(child);
    if (!attribute || !added) return VStatus::kInvalidParameter;
    return attribute->addChild(*added);
}

unsigned VFnCompoundAttribute::numChildren(VStatus* status) const {
    return read("VFnCompoundAttribute::numChildren", m_attribute, status,
                [](const Attribute& attribute) {
                    return static_cast<unsigned>(attribute.children().size());
                });
}

VObject VFnCompoundAttribute::child(unsigned index, VStatus* status) const {
    return readAt(
        "VFnCompoundAttribute::child", m_attribute, index, status,
        [](const Attribute& attribute) -> auto& { return attribute.children(); },
        [](const Attribute* child) { return handleTo(child); });
}
