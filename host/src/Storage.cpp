#include "host/src/Storage.h"

#include "host/src/ArrayData.h"
#include "host/src/Attribute.h"

#include <OpenVornik/VMatrix.h>
#include <OpenVornik/VString.h>

#include <memory>

namespace OpenVornik::Internal {

void constructSlot(const Attribute& attribute, std::byte* slot) noexcept {
    if (attribute.isArray()) {
        new (slot) ArrayData(attribute);
    } else {
        constructValue(attribute, slot);
    }
}

void destroySlot(const Attribute& attribute, std::byte* slot) noexcept {
    if (attribute.isArray()) {
        std::destroy_at(&stored<ArrayData>(slot));
    } else {
        destroyValue(attribute, slot);
    }
}

void copySlot(const Attribute& attribute, std::byte* to, std::byte* from) {
    if (attribute.isArray()) {
        stored<ArrayData>(to).copy(stored<ArrayData>(from));
    } else {
        copyValue(attribute, to, from);
    }
}

void constructValue(const Attribute& attribute, std::byte* storage) noexcept {
    const double defaultValue = attribute.definition().defaultValue;
    switch (attribute.value()) {
        case Value::kNothing:
            break;
        case Value::kBoolean:
            new (storage) bool(defaultValue != 0.0);
            break;
        case Value::kInteger:
            new (storage) int(static_cast<int>(defaultValue));
            break;
        case Value::kDouble:
            new (storage) double(defaultValue);
            break;
        case Value::kEnum:
            new (storage) short(static_cast<short>(defaultValue));
            break;
        case Value::kText:
            new (storage) VString();
            break;
        case Value::kMatrix:
            new (storage) VMatrix();
            break;
        case Value::kCompound:
            for (const Attribute* child : attribute.children()) {
                constructSlot(*child, storage + child->offset());
            }
            break;
    }
}

void destroyValue(const Attribute& attribute, std::byte* storage) noexcept {
    if (attribute.value() == Value::kText) std::destroy_at(&stored<VString>(storage));
    for (const Attribute* child : attribute.children()) {
        destroySlot(*child, storage + child->offset());
    }
}

void copyValue(const Attribute& attribute, std::byte* to, std::byte* from) {
    switch (attribute.value()) {
        case Value::kNothing:
            break;
        case Value::kBoolean:
            stored<bool>(to) = stored<bool>(from);
            break;
        case Value::kInteger:
            stored<int>(to) = stored<int>(from);
            break;
        case Value::kDouble:
            stored<double>(to) = stored<double>(from);
            break;
        case Value::kEnum:
            stored<short>(to) = stored<short>(from);
            break;
        case Value::kText:
            stored<VString>(to) = stored<VString>(from);
            break;
        case Value::kMatrix:
            stored<VMatrix>(to) = stored<VMatrix>(from);
            break;
        case Value::kCompound:
            for (const Attribute* child : attribute.children()) {
                copySlot(*child, to + child->offset(), from + child->offset());
            }
            break;
    }
}

}  // namespace OpenVornik::Internal
