// A graph placed in a host node. Its ports become attributes of the node through a translation; an
// evaluation carries the host's data into graph values, lets the graph make its output values of
// them, and carries those back. The host evaluates the node whenever one of its outputs is asked
// for while dirty.
#pragma once

#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VPlug.h>
#include <OpenVornik/VString.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/String.h>
#include <Pelmor/Type.h>
#include <TavrikGraph/Executor/Export.h>
#include <TavrikGraph/Executor/PortDirection.h>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace TavrikGraph::Executor {

class TypeTranslation;

class TAVRIKGRAPH_API GraphNode {
public:
    struct Port {
        Pelmor::String name;
        PortDirection direction;
        Pelmor::Type type;
        VPlug plug;
        // What the last evaluation brought in or sent out.
        Pelmor::AnyValue value = {};
        // Of the last evaluation: whether the translation carried the value, and how long it took.
        bool translated = false;
        std::chrono::nanoseconds duration{};
    };

    // Makes the values of the output ports (in the order of the ports, one for each, empty at
    // first) from those of the input ports. A value may be left empty. It may not throw.
    using Graph = std::function<void(const std::vector<const Pelmor::AnyValue*>& inputs,
                                     const std::vector<Pelmor::AnyValue*>& outputs)>;

    // A new host node without ports. `translation` outlives the graph node. [edit thread]
    GraphNode(TypeTranslation& translation, const VString& nodeName, Graph graph);
    GraphNode(const GraphNode&) = delete;
    GraphNode& operator=(const GraphNode&) = delete;
    // The host node lives on while a handle names it, but computes nothing any more. [edit thread]
    ~GraphNode();

    // [any thread]
    const VObject& hostNode() const noexcept { return m_hostNode; }
    const std::vector<Port>& ports() const noexcept { return m_ports; }

    // False, and no port is added, if the translation gave the host node no attribute for it.
    // [edit thread]
    bool addPort(const Pelmor::String& name, PortDirection direction, const Pelmor::Type& type);

    // Evaluates the graph once. True if every port was translated. [evaluation thread]
    bool evaluate();

private:
    void translate(Port& port, VDataBlock& dataBlock) const;
    void runGraph();

    TypeTranslation& m_translation;
    VObject m_hostNode;
    Graph m_graph;
    std::vector<Port> m_ports;
    // By which the host node finds this one; null once it is gone.
    std::shared_ptr<GraphNode*> m_self = std::make_shared<GraphNode*>(this);
};

}  // namespace TavrikGraph::Executor
