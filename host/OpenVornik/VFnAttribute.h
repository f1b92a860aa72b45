// Reads and sets what every attribute has. An attribute is made by the `create` of one of the
// function sets derived from this one, which refuse an empty name, and is shared by the handles to
// it until a node takes it; then it lives as long as the node. Flags can be changed at any time;
// names, children and the array flag only before a node has the attribute. [edit thread]
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VStatus.h>
#include <OpenVornik/VString.h>

class OPENVORNIK_API VFnAttribute {
public:
    enum Kind { kNumeric, kTyped, kMatrix, kEnum, kGeneric, kCompound };

    // Fails if `attribute` is no attribute; every operation then fails too.
    explicit VFnAttribute(const VObject& attribute, VStatus* status = nullptr);

    const VObject& object() const noexcept { return m_attribute; }

    VString name(VStatus* status = nullptr) const;
    VString shortName(VStatus* status = nullptr) const;
    Kind kind(VStatus* status = nullptr) const;
    // The compound that has this attribute as a child, or the null object.
    VObject parent(VStatus* status = nullptr) const;

    // A new attribute is readable, writable and enforces a unique name; it is not keyable and no
    // array.
    bool isReadable(VStatus* status = nullptr) const;
    bool isWritable(VStatus* status = nullptr) const;
    bool isKeyable(VStatus* status = nullptr) const;
    bool isArray(VStatus* status = nullptr) const;
    bool isEnforcingUniqueName(VStatus* status = nullptr) const;

    VStatus setReadable(bool readable);
    VStatus setWritable(bool writable);
    VStatus setKeyable(bool keyable);
    VStatus setArray(bool array);
    // Whether a node that has this name anywhere refuses a tree with the attribute as a child.
    VStatus setEnforcingUniqueName(bool enforcing);

protected:
    // A function set without an attribute, for the derived ones before `create`.
    VFnAttribute() noexcept = default;

    VObject m_attribute;
};
