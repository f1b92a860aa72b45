#include "tests/faults/WritePlan.h"

namespace FaultTests {
namespace {

class Writing {
public:
    Writing(const Entries& graph, const Entries& host) : m_graph(graph), m_host(host) {}

    void addPort(const VPlug& plug) {
        add("VDataBlock::outputValue", plug);
        addValue(plug);
        add("VPlug::attribute", plug);
        add("VDataBlock::setClean", plug);
    }

    PlannedCalls calls;

private:
    void addValue(const VPlug& plug) {
        if (plug.isArray()) return addArray(plug);
        if (!plug.isCompound()) return addLeaf(plug);
        for (const VPlug& child : carriedChildren(plug)) {
            add("VPlug::child", child);
            add("VDataHandle::child", child);
            addValue(child);
        }
    }

    void addLeaf(const VPlug& plug) {
        switch (VFnAttribute(plug.attribute()).kind()) {
            case VFnAttribute::kMatrix:
                return add("VDataHandle::asMatrix", plug);
            case VFnAttribute::kTyped:
                return add("VDataHandle::setString", plug);
            default:
                return add("VDataHandle::setDouble", plug);
        }
    }

    void addArray(const VPlug& plug) {
        const unsigned length = lengthOf(m_graph, plug.name().asChar());
        const unsigned hostLength = lengthOf(m_host, plug.name().asChar());
        add("VArrayDataHandle::VArrayDataHandle", plug);
        add("VArrayDataHandle::elementCount", plug);
        if (length == hostLength)
            addInPlace(plug, length);
        else
            addRebuilding(plug, length, hostLength);
        add("VArrayDataHandle::setAllClean", plug);
    }

    void addInPlace(const VPlug& plug, unsigned length) {
        for (unsigned k = 0; k < length; ++k) {
            const VPlug element = plug.elementByLogicalIndex(k);
            add("VArrayDataHandle::outputValue", element);
            addElement(element);
            add("VArrayDataHandle::next", element);
        }
    }

    void addRebuilding(const VPlug& plug, unsigned length, unsigned hostLength) {
        add("VArrayDataHandle::builder", plug);
        ++m_builders;
        for (unsigned k = 0; k < length; ++k) {
            const VPlug element = plug.elementByLogicalIndex(k);
            add("VArrayDataBuilder::addElement", element);
            addElement(element);
        }
        --m_builders;
        add("VArrayDataBuilder::elementCount", plug);
        for (unsigned k = length; k < hostLength; ++k)
            add("VArrayDataBuilder::removeElement", plug.elementByLogicalIndex(k));
        add("VArrayDataHandle::set", plug);
    }

    void addElement(const VPlug& element) {
        if (element.isCompound()) add("VPlug::elementByLogicalIndex", element);
        addValue(element);
    }

    void add(std::string_view operation, const VPlug& plug) {
        calls.push_back({operation, plug.name().asChar(), m_builders > 0});
    }

    const Entries& m_graph;
    const Entries& m_host;
    unsigned m_builders = 0;
};

}  // namespace

PlannedCalls planOfWriting(const VPlug& port, const Entries& graph, const Entries& host) {
    Writing writing(graph, host);
    writing.addPort(port);
    return writing.calls;
}

}  // namespace FaultTests
