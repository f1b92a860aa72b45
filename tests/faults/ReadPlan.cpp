#include "tests/faults/ReadPlan.h"

namespace FaultTests {
namespace {

class Reading {
public:
    explicit Reading(const Entries& host) : m_host(host) {}

    void addPort(const VPlug& plug) {
        add("VDataBlock::inputValue", plug);
        addValue(plug);
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
                return add("VDataHandle::asString", plug);
            default:
                return add("VDataHandle::asDouble", plug);
        }
    }

    void addArray(const VPlug& plug) {
        add("VArrayDataHandle::VArrayDataHandle", plug);
        add("VArrayDataHandle::elementCount", plug);
        for (unsigned k = 0, length = lengthOf(m_host, plug.name().asChar()); k < length; ++k) {
            const VPlug element = plug.elementByLogicalIndex(k);
            add("VArrayDataHandle::inputValue", element);
            if (element.isCompound()) add("VPlug::elementByLogicalIndex", element);
            addValue(element);
            add("VArrayDataHandle::next", element);
        }
    }

    void add(std::string_view operation, const VPlug& plug) {
        calls.push_back({operation, plug.name().asChar()});
    }

    const Entries& m_host;
};

}  // namespace

PlannedCalls planOfReading(const VPlug& port, const Entries& host) {
    Reading reading(host);
    reading.addPort(port);
    return reading.calls;
}

}  // namespace FaultTests
