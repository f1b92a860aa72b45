#include "tools/inspect/TypedNode.h"

#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VErrorListener.h>
#include <OpenVornik/VFnDependencyNode.h>

namespace Tolvane::Tools {

using namespace TavrikGraph::Executor;

TypedNode::TypedNode(const TypeTranslation& translation, const Pelmor::Type& type)
    : TypedNode(translation, translation, type) {}

TypedNode::TypedNode(const TypeTranslation& ports, const TypeTranslation& values,
                     const Pelmor::Type& type)
    : m_values(values),
      m_type(type),
      m_node(VFnDependencyNode().create("node")),
      m_data(VFnDependencyNode(m_node).dataBlock()),
      m_input(addPort(ports, "in", PortDirection::Input)),
      m_output(addPort(ports, "out", PortDirection::Output)) {}

void TypedNode::requirePorts(const std::string& library) const {
    if (m_input.shape && m_output.shape) return;
    throw Error(Stage::Ports, library,
                library + ": ports of " + oneLine(m_type.getFullyQualifiedName().c_str()) +
                    " get no attribute",
                1);
}

bool TypedNode::read(Pelmor::AnyValue& value) {
    const HostContext context{this, &m_input.shape->plug, &m_data};
    return m_values.translateFromHost(m_type, value, context);
}

bool TypedNode::write(const Pelmor::AnyValue& value) {
    const HostContext context{this, &m_output.shape->plug, &m_data};
    return m_values.translateToHost(value, context);
}

TypedNode::Port TypedNode::addPort(const TypeTranslation& translation, const char* name,
                                   PortDirection direction) {
    Port port;
    const VErrorListener listener(
        [&](const VString& message) { port.messages.emplace_back(message.asChar()); });
    VDGModifier modifier;
    NodeEditContext context{this, m_node, nullptr, &modifier};
    if (!translation.portAdded(name, direction, m_type, 0, 0, &context)) return port;
    const VPlug plug = VFnDependencyNode(m_node).findPlug(name);
    if (!plug.isNull()) port.shape = shapeOf(plug);
    return port;
}

Pelmor::Type typeNamed(const std::string& name, const Pelmor::Library& types) {
    const auto type = types.findType(name.c_str());
    if (!type)
        throw Error(
            Stage::Usage, "",
            "the graph does not know the type " + inQuotes(oneLine(name)) + " (see --types)");
    return *type;
}

}  // namespace Tolvane::Tools
