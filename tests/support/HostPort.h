// A host node, "node", with one attribute, and the data of that attribute.
#pragma once

#include "tests/support/CarriedTypes.h"
#include "tests/support/HostAttributes.h"
#include "tests/support/HostData.h"

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <OpenVornik/VPlug.h>

#include <stdexcept>
#include <vector>

namespace TestSupport {

class HostPort {
public:
    explicit HostPort(const VObject& attribute) {
        VFnDependencyNode functions;
        m_node = functions.create("node");
        VDGModifier modifier;
        modifier.addAttribute(m_node, attribute);
        if (modifier.doIt().error()) throw std::logic_error("the host refused the attribute");
        plug = VPlug(m_node, attribute);
        block = functions.dataBlock();
        handle = block.outputValue(plug);
    }

    template <typename Record>
    static HostPort ofRecord() {
        return HostPort(attributeFor<Record>("value"));
    }
    template <typename Element>
    static HostPort ofArray(const std::vector<unsigned>& indices = {}) {
        HostPort port(attributeFor<Element>("value", true));
        setIndices(port.handle, indices);
        return port;
    }
    // The same, each element with values of its own, from `first` on.
    template <typename Element>
    static HostPort ofNumberedArray(const std::vector<unsigned>& indices, unsigned first = 1) {
        HostPort port = ofArray<Element>(indices);
        Numbers numbers(first);
        numberElements(numbers, port.handle, port.plug);
        return port;
    }

    // For what a holder holds, a record or a shared array of records, without any elements.
    template <typename Held>
    static HostPort ofHeld() {
        return HostPort(attributeFor<Held>("value"));
    }

    Leaves leaves() const { return leavesOf(handle, plug); }
    std::vector<unsigned> indices() const { return indicesOf(handle); }
    bool isClean() const { return block.isClean(plug.attribute()); }

    VPlug child(unsigned index) { return plug.child(index); }
    VDataHandle childHandle(unsigned index) { return handle.child(child(index)); }

    VPlug plug;
    VDataBlock block;
    VDataHandle handle;

private:
    VObject m_node;
};

}  // namespace TestSupport
