#include "host/src/AttributeAccess.h"

#include <OpenVornik/VFnNumericAttribute.h>

#include <limits>
#include <optional>

using namespace OpenVornik::Internal;

namespace {

std::optional<Value> valueFor(VFnNumericData::Type type) noexcept {
    switch (type) {
        case VFnNumericData::kBoolean:
            return Value::kBoolean;
        case VFnNumericData::kInt:
            return Value::kInteger;
        case VFnNumericData::kDouble:
            return Value::kDouble;
        case VFnNumericData::kInvalid:
            break;
    }
    return std::nullopt;
}

bool canHold(Value value, double number) noexcept {
    using Limits = std::numeric_limits<int>;
    return value != Value::kInteger || (number >= Limits::min() && number <= Limits::max());
}

}  // namespace

VFnNumericAttribute::VFnNumericAttribute(const VObject& attribute, VStatus* status) {
    if (refused(status, "VFnNumericAttribute::VFnNumericAttribute", attribute)) return;
    m_attribute = ofKind(attribute, kNumeric, status);
}

VObject VFnNumericAttribute::create(const VString& longName, const VString& shortName,
                                    VFnNumericData::Type type, double defaultValue,
                                    VStatus* status) {
    if (refused(status, "VFnNumericAttribute::create", Nothing(), longName, shortName,
                static_cast<int>(type), defaultValue)) {
        return {};
    }
    const std::optional<Value> value = valueFor(type);
    if (!value || !canHold(*value, defaultValue)) return fail(status, VStatus::kInvalidParameter);
    return make(m_attribute, {kNumeric, longName, shortName, *value, defaultValue}, status);
}

VFnNumericData::Type VFnNumericAttribute::unitType(VStatus* status) const {
    return read("VFnNumericAttribute::unitType", m_attribute, status,
                [](const Attribute& attribute) {
                    switch (attribute.value()) {
                        case Value::kBoolean:
                            return VFnNumericData::kBoolean;
                        case Value::kInteger:
                            return VFnNumericData::kInt;
                        default:
                            return VFnNumericData::kDouble;
                    }
                });
}

double VFnNumericAttribute::defaultValue(VStatus* status) const {
    return read("VFnNumericAttribute::defaultValue", m_attribute, status,
                [](const Attribute& attribute) { return attribute.definition().defaultValue; });
}
