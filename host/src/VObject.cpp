#include "host/src/Attribute.h"
#include "host/src/Node.h"

#include <OpenVornik/VObject.h>

#include <utility>

using OpenVornik::Internal::Attribute;
using OpenVornik::Internal::Node;
using OpenVornik::Internal::Object;

const VObject VObject::kNullObj;

VObject::VObject(Object* object) noexcept : m_object(object) {
    if (m_object) m_object->retain();
}

VObject::VObject(const VObject& other) noexcept : VObject(other.m_object) {}

VObject::VObject(VObject&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}

VObject::~VObject() {
    if (m_object) m_object->release();
}

VObject& VObject::operator=(const VObject& other) noexcept { return *this = VObject(other); }

VObject& VObject::operator=(VObject&& other) noexcept {
    std::swap(m_object, other.m_object);
    return *this;
}

Node* OpenVornik::Internal::nodeOf(const VObject& handle) noexcept {
    return dynamic_cast<Node*>(ObjectAccess::named(handle));
}

Attribute* OpenVornik::Internal::attributeOf(const VObject& handle) noexcept {
    return dynamic_cast<Attribute*>(ObjectAccess::named(handle));
}
