// A node: its attributes, their data, which of them are clean, and what it is connected to.
#pragma once

#include "host/src/Attribute.h"
#include "host/src/Connection.h"
#include "host/src/Object.h"

#include <OpenVornik/VFnDependencyNode.h>
#include <OpenVornik/VPlug.h>
#include <OpenVornik/VStatus.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace OpenVornik::Internal {

class Node final : public Object {
public:
    explicit Node(const VString& name) : m_name(name) {}
    ~Node() override;

    const VString& name() const noexcept override { return m_name; }

    // Takes a tree of attributes at the top level. A refusal changes nothing.
    VStatus add(Attribute& attribute);
    void removeLast() noexcept;
    // The attributes at the top level.
    const std::vector<Attribute*>& roots() const noexcept { return m_roots; }
    // The attribute at the top level that has `name`, long or short, or null.
    Attribute* find(const VString& name) const noexcept;
    // All attributes, by Attribute::index.
    const std::vector<Attribute*>& attributes() const noexcept { return m_attributes; }

    // Where the data of a plug of this node lies. If an element on its path is absent, findData
    // returns null and addData adds it.
    std::byte* findData(const VPlug& plug) const;
    std::byte* addData(const VPlug& plug);

    bool isClean(const Attribute& attribute) const { return m_clean[attribute.index()]; }
    void markClean(const Attribute& attribute);
    void markDirty(const Attribute& attribute);

    VDataBlock dataBlock() noexcept { return VDataBlock(this); }

    Connections connections;
    VFnDependencyNode::Compute compute;
    // The attributes whose evaluation is under way.
    std::vector<const Attribute*> evaluating;

private:
    bool hasNameClash(const std::vector<Attribute*>& tree) const;

    VString m_name;
    std::vector<Attribute*> m_roots;
    // By Attribute::index. Only attributes at the top level have a slot here; the others have
    // theirs inside it.
    std::vector<Attribute*> m_attributes;
    std::vector<std::unique_ptr<std::byte[]>> m_slots;
    std::vector<bool> m_clean;
};

}  // namespace OpenVornik::Internal
