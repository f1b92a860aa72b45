// The data of one node, as its evaluation sees it. A block is a value that copies without
// allocating; it is valid while its node lives. Dirty and clean are kept per attribute: a new
// attribute is dirty, a compound that is marked is marked with all below it, and a child that
// becomes dirty makes the attributes above it dirty. [evaluation thread]
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VPlug.h>
#include <OpenVornik/VStatus.h>

class OPENVORNIK_API VDataBlock {
public:
    // A block of nothing, on which every operation fails.
    VDataBlock() noexcept = default;

    // The data of `plug`, which must be of this block's node. Fails with a null handle if an
    // element on the plug's path is absent. If the attribute is dirty it is evaluated first, and
    // clean afterwards. Each plug that is connected to it, to something above it or below it, is
    // asked for its value, which is copied here; an attribute that is not writable, or is below one
    // that is not, is computed by its own node, as a whole. If a computation on the way fails,
    // `status` is the first such failure, and the data is as the computation left it. An attribute
    // that is being evaluated already is taken as it is, so that cycles end.
    VDataHandle inputValue(const VPlug& plug, VStatus* status = nullptr);
    // The same data as it stands; evaluates nothing and cleans nothing.
    VDataHandle outputValue(const VPlug& plug, VStatus* status = nullptr);

    VStatus setClean(const VObject& attribute);
    // Also makes dirty what depends on the attribute: the attributes of its node that are not
    // writable, if it is writable itself, and whatever is connected downstream of any of these.
    VStatus setDirty(const VObject& attribute);
    // False for an attribute that is not this node's.
    bool isClean(const VObject& attribute) const;

private:
    friend class OpenVornik::Internal::Node;

    explicit VDataBlock(OpenVornik::Internal::Node* node) noexcept : m_node(node) {}

    bool has(const VPlug& plug) const noexcept;
    VDataHandle find(const VPlug& plug) const;
    // Null if the attribute is not the node's.
    const OpenVornik::Internal::Attribute* find(const VObject& attribute) const noexcept;

    OpenVornik::Internal::Node* m_node = nullptr;
};
