// Names one attribute of one node, and the path of logical indices that leads to it through the
// array attributes above it. A plug is a value that copies without allocating. Making one touches
// no data: a plug at a logical index where the array has no element is still a plug. It keeps
// neither the node nor the attribute alive, and is valid while they live.
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VStatus.h>
#include <OpenVornik/VString.h>

#include <array>

namespace OpenVornik::Internal {
struct PlugAccess;
}

class OPENVORNIK_API VPlug {
public:
    // How many array attributes may stand inside one another; a node refuses deeper trees.
    static constexpr unsigned kMaxArrayDepth = 7;

    // A null plug. Every operation on one fails with kInvalidParameter.
    VPlug() noexcept = default;
    // The plug of `attribute` on `node`. Elements above the attribute, if there are any, are those
    // at logical index 0.
    VPlug(const VObject& node, const VObject& attribute, VStatus* status = nullptr);

    bool isNull() const noexcept { return m_attribute == nullptr; }

    // The plug of the child attribute at `index` of a compound that is no array, or of an element
    // of a compound array. Fails with a null plug.
    VPlug child(unsigned index, VStatus* status = nullptr);
    // Fails with 0 on anything but a compound or an array of compounds.
    unsigned numChildren(VStatus* status = nullptr) const;
    // The plug of one element of an array, whether the array has that element or not. Fails with
    // a null plug on anything but an array.
    VPlug elementByLogicalIndex(unsigned logicalIndex, VStatus* status = nullptr);
    // The logical index of an element plug. Fails with 0 on any other plug.
    unsigned logicalIndex(VStatus* status = nullptr) const;

    // The whole array, not one of its elements.
    bool isArray(VStatus* status = nullptr) const;
    bool isElement(VStatus* status = nullptr) const;
    bool isCompound(VStatus* status = nullptr) const;

    VObject attribute(VStatus* status = nullptr) const;
    VObject node(VStatus* status = nullptr) const;
    // The node's name and the path of attributes, such as "walk.limbs[3].names".
    VString name(VStatus* status = nullptr) const;

    friend bool operator==(const VPlug& a, const VPlug& b) noexcept { return a.equals(b); }
    friend bool operator!=(const VPlug& a, const VPlug& b) noexcept { return !a.equals(b); }

private:
    friend struct OpenVornik::Internal::PlugAccess;

    // A child of `above`, in the same element.
    VPlug(const VPlug& above, const OpenVornik::Internal::Attribute* attribute) noexcept
        : m_path(above.m_path), m_attribute(attribute) {}

    bool equals(const VPlug& other) const noexcept;

    // One logical index for each array above and, in an element plug, for the attribute itself.
    struct Path {
        std::array<unsigned, kMaxArrayDepth> indices{};
        unsigned depth = 0;
    };

    // First, because its four words are then copied as two pairs: plugs are copied all the time.
    Path m_path;
    const OpenVornik::Internal::Attribute* m_attribute = nullptr;
};
