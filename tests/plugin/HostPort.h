// A host node, "rig", with an attribute "port" on it, as a translation is given them at an
// evaluation.
#pragma once

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <TavrikGraph/Executor/HostContext.h>

namespace PluginTests {

struct HostPort {
    // The attribute is the given one, or a number.
    explicit HostPort(const VObject& given = VObject::kNullObj)
        : attribute(given.isNull() ? newNumber() : given) {
        VDGModifier modifier;
        modifier.addAttribute(node, attribute);
        modifier.doIt();
        plug = VPlug(node, attribute);
        block = VFnDependencyNode(node).dataBlock();
    }
    HostPort(const HostPort&) = delete;
    HostPort& operator=(const HostPort&) = delete;

    bool isClean() const { return block.isClean(attribute); }

    static VObject newNumber() {
        return VFnNumericAttribute().create("port", "port", VFnNumericData::kDouble);
    }

    VObject attribute;
    VObject node = VFnDependencyNode().create("rig");
    VPlug plug;
    VDataBlock block;
    TavrikGraph::Executor::HostContext context{nullptr, &plug, &block};
};

}  // namespace PluginTests
