#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <TavrikGraph/Executor/GraphNode.h>
#include <TavrikGraph/Executor/TypeTranslation.h>

#include <algorithm>
#include <utility>

namespace TavrikGraph::Executor {

GraphNode::GraphNode(TypeTranslation& translation, const VString& nodeName, Graph graph)
    : m_translation(translation), m_graph(std::move(graph)) {
    VFnDependencyNode node;
    m_hostNode = node.create(nodeName);
    node.setCompute([self = m_self](const VPlug&, VDataBlock&) {
        return VStatus(*self && (*self)->evaluate() ? VStatus::kSuccess : VStatus::kFailure);
    });
}

GraphNode::~GraphNode() {
    // The host may refuse what follows.
    *m_self = nullptr;
    VFnDependencyNode(m_hostNode).setCompute({});
}

bool GraphNode::addPort(const Pelmor::String& name, PortDirection direction,
                        const Pelmor::Type& type) {
    VDGModifier modifier;
    NodeEditContext context{this, m_hostNode, nullptr, &modifier};
    const auto index = static_cast<std::uint32_t>(m_ports.size());
    if (!m_translation.portAdded(name, direction, type, index, 0, &context)) return false;
    const VPlug plug = VFnDependencyNode(m_hostNode).findPlug(name.asChar());
    if (plug.isNull()) return false;
    m_ports.push_back({name, direction, type, plug});
    return true;
}

bool GraphNode::evaluate() {
    VDataBlock dataBlock = VFnDependencyNode(m_hostNode).dataBlock();
    const auto translateAll = [&](PortDirection direction) {
        for (Port& port : m_ports)
            if (port.direction == direction) translate(port, dataBlock);
    };
    translateAll(PortDirection::Input);
    runGraph();
    translateAll(PortDirection::Output);
    return std::all_of(m_ports.begin(), m_ports.end(),
                       [](const Port& port) { return port.translated; });
}

void GraphNode::translate(Port& port, VDataBlock& dataBlock) const {
    const HostContext context{this, &port.plug, &dataBlock};
    const auto start = std::chrono::steady_clock::now();
    port.translated = port.direction == PortDirection::Input
                          ? m_translation.translateFromHost(port.type, port.value, context)
                          : m_translation.translateToHost(port.value, context);
    port.duration = std::chrono::steady_clock::now() - start;
}

void GraphNode::runGraph() {
    std::vector<const Pelmor::AnyValue*> inputs;
    std::vector<Pelmor::AnyValue*> outputs;
    for (Port& port : m_ports) {
        if (port.direction == PortDirection::Input) {
            inputs.push_back(&port.value);
        } else {
            port.value.reset();
            outputs.push_back(&port.value);
        }
    }
    m_graph(inputs, outputs);
}

}  // namespace TavrikGraph::Executor
