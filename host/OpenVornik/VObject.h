// A counted reference to something that the host owns: a node or an attribute. Two handles are
// equal when they name the same thing. [any thread]
#pragma once

#include <OpenVornik/Export.h>

namespace OpenVornik::Internal {
class Object;
class Node;
class Attribute;
}  // namespace OpenVornik::Internal

class OPENVORNIK_API VObject {
public:
    // Names nothing.
    static const VObject kNullObj;

    VObject() noexcept = default;
    explicit VObject(OpenVornik::Internal::Object* object) noexcept;
    VObject(const VObject& other) noexcept;
    VObject(VObject&& other) noexcept;
    ~VObject();
    VObject& operator=(const VObject& other) noexcept;
    VObject& operator=(VObject&& other) noexcept;

    bool isNull() const noexcept { return m_object == nullptr; }

    friend bool operator==(const VObject& a, const VObject& b) noexcept {
        return a.m_object == b.m_object;
    }
    friend bool operator!=(const VObject& a, const VObject& b) noexcept {
        return a.m_object != b.m_object;
    }

    // For the host's own use. Null if what is named is of the other kind, or nothing.
    OpenVornik::Internal::Node* asNode() const noexcept;
    OpenVornik::Internal::Attribute* asAttribute() const noexcept;

private:
    OpenVornik::Internal::Object* m_object = nullptr;
};
