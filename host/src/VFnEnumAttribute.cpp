#include "host/src/AttributeAccess.h"

#include <OpenVornik/VFnEnumAttribute.h>

using namespace OpenVornik::Internal;

namespace {

const std::vector<Attribute::Field>& fieldsOf(const Attribute& attribute) noexcept {
    return attribute.fields;
}

}  // namespace

VFnEnumAttribute::VFnEnumAttribute(const VObject& attribute, VStatus* status) {
    if (refused(status, "VFnEnumAttribute::VFnEnumAttribute", attribute)) return;
    m_attribute = ofKind(attribute, kEnum, status);
}

VObject VFnEnumAttribute::create(const VString& longName, const VString& shortName,
                                 short defaultValue, VStatus* status) {
    if (refused(status, "VFnEnumAttribute::create", Nothing(), longName, shortName, defaultValue)) {
        return {};
    }
    const auto value = static_cast<double>(defaultValue);
    return make(m_attribute, {kEnum, longName, shortName, Value::kEnum, value}, status);
}

VStatus VFnEnumAttribute::addField(const VString& name, short value) {
    const VStatus answer = refusal("VFnEnumAttribute::addField", m_attribute, name, value);
    if (answer.error()) return answer;
    Attribute* attribute = attributeOf(m_attribute);
    if (!attribute) return VStatus::kInvalidParameter;
    for (const Attribute::Field& field : attribute->fields) {
        if (field.name == name) return VStatus::kFailure;
    }
    attribute->fields.push_back({name, value});
    return VStatus::kSuccess;
}

unsigned VFnEnumAttribute::numFields(VStatus* status) const {
    return read("VFnEnumAttribute::numFields", m_attribute, status, [](const Attribute& attribute) {
        return static_cast<unsigned>(attribute.fields.size());
    });
}

VString VFnEnumAttribute::fieldName(unsigned index, VStatus* status) const {
    return readAt("VFnEnumAttribute::fieldName", m_attribute, index, status, fieldsOf,
                  [](const Attribute::Field& field) { return field.name; });
}

short VFnEnumAttribute::fieldValue(unsigned index, VStatus* status) const {
    return readAt("VFnEnumAttribute::fieldValue", m_attribute, index, status, fieldsOf,
                  [](const Attribute::Field& field) { return field.value; });
}

short VFnEnumAttribute::defaultValue(VStatus* status) const {
    return read("VFnEnumAttribute::defaultValue", m_attribute, status,
                [](const Attribute& attribute) {
                    return static_cast<short>(attribute.definition().defaultValue);
                });
}
