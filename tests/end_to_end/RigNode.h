// A graph in a host node, with the plugin between them, and the data of its ports.
#pragma once

#include "tests/support/HostData.h"

#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <Pelmor/AnyValue.h>
#include <Pelmor/Library.h>
#include <TavrikGraph/Executor/GraphNode.h>
#include <TavrikGraph/Executor/TypeTranslation.h>

#include <utility>

namespace TestSupport {

using TavrikGraph::Executor::GraphNode;
using TavrikGraph::Executor::PortDirection;
using TavrikGraph::Executor::TypeTranslation;

class RigNode {
public:
    // The graph hands on each input to the output of the same position.
    RigNode(TypeTranslation& translation, const char* name)
        : RigNode(translation, name, [](const auto& inputs, const auto& outputs) {
              for (std::size_t i = 0; i < inputs.size() && i < outputs.size(); ++i)
                  *outputs[i] = *inputs[i];
          }) {}
    RigNode(TypeTranslation& translation, const char* name, GraphNode::Graph graph)
        : m_graphNode(translation, name, std::move(graph)) {}

    GraphNode& graphNode() noexcept { return m_graphNode; }
    bool evaluate() { return m_graphNode.evaluate(); }

    bool addPort(const char* name, PortDirection direction, const char* typeName) {
        return m_graphNode.addPort(name, direction, Pelmor::Library().getType(typeName));
    }
    // "in" and "out", of one type.
    bool addPorts(const char* typeName) {
        return addPort("in", PortDirection::Input, typeName) &&
               addPort("out", PortDirection::Output, typeName);
    }

    VFnDependencyNode hostNode() const { return VFnDependencyNode(m_graphNode.hostNode()); }
    VPlug plug(const char* port) const { return hostNode().findPlug(port); }
    // The data as it stands.
    VDataHandle data(const char* port) const {
        return hostNode().dataBlock().outputValue(plug(port));
    }
    Leaves leaves(const char* port) const { return leavesOf(data(port), plug(port)); }
    bool isClean(const char* port) const {
        return hostNode().dataBlock().isClean(plug(port).attribute());
    }

    // Fills an input as a user of the host would, which makes the outputs dirty.
    void fill(const char* port, Numbers numbers) {
        number(numbers, data(port), plug(port));
        hostNode().dataBlock().setDirty(plug(port).attribute());
    }

private:
    GraphNode m_graphNode;
};

}  // namespace TestSupport
