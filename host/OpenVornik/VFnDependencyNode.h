// Makes nodes, and reads what a node has. A node lives while a handle names it.
#pragma once

#include <OpenVornik/Export.h>
#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VPlug.h>
#include <OpenVornik/VStatus.h>
#include <OpenVornik/VString.h>

#include <functional>

class OPENVORNIK_API VFnDependencyNode {
public:
    // Computes the attribute of `plug`, and any others that it likes, into the node's data.
    // [evaluation thread]
    using Compute = std::function<VStatus(const VPlug& plug, VDataBlock& dataBlock)>;

    VFnDependencyNode() noexcept = default;
    // Fails if `node` is no node; every operation then fails too.
    explicit VFnDependencyNode(const VObject& node, VStatus* status = nullptr);

    // A new node without attributes, which this function set then works on. [edit thread]
    VObject create(const VString& name, VStatus* status = nullptr);

    const VObject& object() const noexcept { return m_node; }
    VString name(VStatus* status = nullptr) const;

    // The attribute at the top level that has `name`, long or short; children are not found by
    // name. The null object, without a failure, if there is none.
    VObject attribute(const VString& name, VStatus* status = nullptr) const;
    // The attributes at the top level, in the order in which they were added.
    unsigned attributeCount(VStatus* status = nullptr) const;
    VObject attribute(unsigned index, VStatus* status = nullptr) const;
    // The plug of the attribute that `attribute(name)` gives. Fails with a null plug.
    VPlug findPlug(const VString& name, VStatus* status = nullptr) const;

    // The node's data. [evaluation thread]
    VDataBlock dataBlock(VStatus* status = nullptr) const;
    // What computes the node's attributes that are not writable; an empty function for none.
    // [edit thread]
    VStatus setCompute(Compute compute);

private:
    VObject m_node;
};
