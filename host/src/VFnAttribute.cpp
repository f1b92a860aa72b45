#include "host/src/AttributeAccess.h"

#include <OpenVornik/VFnAttribute.h>

using namespace OpenVornik::Internal;

namespace {

VStatus setFlag(std::string_view operation, const VObject& object, bool Attribute::*flag,
                bool value) {
    if (const VStatus answer = refusal(operation, object, value); answer.error()) return answer;
    Attribute* attribute = attributeOf(object);
    if (!attribute) return VStatus::kInvalidParameter;
    attribute->*flag = value;
    return VStatus::kSuccess;
}

}  // namespace

VFnAttribute::VFnAttribute(const VObject& attribute, VStatus* status) {
    if (refused(status, "VFnAttribute::VFnAttribute", attribute)) return;
    if (attributeOf(attribute)) {
        m_attribute = succeed(status, attribute);
    } else {
        fail(status, VStatus::kInvalidParameter);
    }
}

VString VFnAttribute::name(VStatus* status) const {
    return read("VFnAttribute::name", m_attribute, status,
                [](const Attribute& attribute) { return attribute.definition().longName; });
}

VString VFnAttribute::shortName(VStatus* status) const {
    return read("VFnAttribute::shortName", m_attribute, status,
                [](const Attribute& attribute) { return attribute.definition().shortName; });
}

VFnAttribute::Kind VFnAttribute::kind(VStatus* status) const {
    return read("VFnAttribute::kind", m_attribute, status,
                [](const Attribute& attribute) { return attribute.definition().kind; });
}

VObject VFnAttribute::parent(VStatus* status) const {
    return read("VFnAttribute::parent", m_attribute, status,
                [](const Attribute& attribute) { return handleTo(attribute.parent()); });
}

bool VFnAttribute::isReadable(VStatus* status) const {
    return read("VFnAttribute::isReadable", m_attribute, status,
                [](const Attribute& attribute) { return attribute.readable; });
}

bool VFnAttribute::isWritable(VStatus* status) const {
    return read("VFnAttribute::isWritable", m_attribute, status,
                [](const Attribute& attribute) { return attribute.writable; });
}

bool VFnAttribute::isKeyable(VStatus* status) const {
    return read("VFnAttribute::isKeyable", m_attribute, status,
                [](const Attribute& attribute) { return attribute.keyable; });
}

bool VFnAttribute::isArray(VStatus* status) const {
    return read("VFnAttribute::isArray", m_attribute, status,
                [](const Attribute& attribute) { return attribute.isArray(); });
}

bool VFnAttribute::isEnforcingUniqueName(VStatus* status) const {
    return read("VFnAttribute::isEnforcingUniqueName", m_attribute, status,
                [](const Attribute& attribute) { return attribute.enforcingUniqueName; });
}

VStatus VFnAttribute::setReadable(bool readable) {
    return setFlag("VFnAttribute::setReadable", m_attribute, &Attribute::readable, readable);
}

VStatus VFnAttribute::setWritable(bool writable) {
    return setFlag("VFnAttribute::setWritable", m_attribute, &Attribute::writable, writable);
}

VStatus VFnAttribute::setKeyable(bool keyable) {
    return setFlag("VFnAttribute::setKeyable", m_attribute, &Attribute::keyable, keyable);
}

VStatus VFnAttribute::setArray(bool array) {
    const VStatus answer = refusal("VFnAttribute::setArray", m_attribute, array);
    if (answer.error()) return answer;
    Attribute* attribute = attributeOf(m_attribute);
    return attribute ? attribute->setArray(array) : VStatus::kInvalidParameter;
}

VStatus VFnAttribute::setEnforcingUniqueName(bool enforcing) {
    return setFlag("VFnAttribute::setEnforcingUniqueName", m_attribute,
                   &Attribute::enforcingUniqueName, enforcing);
}
