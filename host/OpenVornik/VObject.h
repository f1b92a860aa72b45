// A counted reference to something that the host owns: a node or an attribute. Two handles are
// equal when they name the same thing. [any thread]
#pragma once

#include <OpenVornik/Export.h>

namespace OpenVornik::Internal {
class Object;
class Node;
class Attribute;
struct ObjectAccess;
}  // namespace OpenVornik::Internal

class OPENVORNIK_API VObject {
public:
    // Names nothing.
    static const VObject kNullObj;

    VObject() noexcept = default;
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

private:
    friend struct OpenVornik::Internal::ObjectAccess;

    explicit VObject(OpenVornik::Internal::Object* object) noexcept;

    OpenVornik::Internal::Object* m_object = nullptr;
};
