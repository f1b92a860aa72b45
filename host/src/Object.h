// What a VObject counts references to: a node or an attribute. The last reference to go destroys
// it.
#pragma once

#include <OpenVornik/VObject.h>
#include <OpenVornik/VString.h>

#include <atomic>

namespace OpenVornik::Internal {

class Object {
public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object() = default;

    virtual const VString& name() const noexcept = 0;

    void retain() const noexcept { m_uses.fetch_add(1, std::memory_order_relaxed); }
    void release() const noexcept {
        if (m_uses.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
    }

private:
    mutable std::atomic<unsigned> m_uses{0};
};

struct ObjectAccess {
    static VObject handleTo(Object* object) noexcept { return VObject(object); }
    static Object* named(const VObject& handle) noexcept { return handle.m_object; }
};

// Plugs and handles see attributes as constant, because their shape is; a caller that is given one
// as an object may still change its flags.
inline VObject handleTo(const Object* object) noexcept {
    return ObjectAccess::handleTo(const_cast<Object*>(object));
}

// Null if what is named is of the other kind, or nothing.
Node* nodeOf(const VObject& handle) noexcept;
Attribute* attributeOf(const VObject& handle) noexcept;

}  // namespace OpenVornik::Internal
