#include "tools/node/ForwardingTranslation.h"

namespace Tolvane::Tools {

using namespace TavrikGraph::Executor;

bool ForwardingTranslation::translateFromHost(const Pelmor::Type& type, Pelmor::AnyValue& value,
                                              const HostContext& context) const noexcept {
    return m_target.translateFromHost(type, value, context);
}

bool ForwardingTranslation::translateToHost(const Pelmor::AnyValue& value,
                                            const HostContext& context) const noexcept {
    return m_target.translateToHost(value, context);
}

void ForwardingTranslation::getSupportedTypes(
    const Pelmor::Library& library, Pelmor::EntityIndexedList<Pelmor::Type>& types) const noexcept {
    m_target.getSupportedTypes(library, types);
}

void ForwardingTranslation::getSupportedTypeNames(
    Pelmor::Array<Pelmor::String>& names) const noexcept {
    m_target.getSupportedTypeNames(names);
}

bool ForwardingTranslation::portAdded(const Pelmor::String& portName, PortDirection direction,
                                      const Pelmor::Type& type, std::uint32_t portIndex,
                                      std::uint32_t portFlags,
                                      NodeEditContext* context) const noexcept {
    return m_target.portAdded(portName, direction, type, portIndex, portFlags, context);
}

bool ForwardingTranslation::portRemoved(const Pelmor::String& nodeName,
                                        const Pelmor::String& portName) const noexcept {
    return m_target.portRemoved(nodeName, portName);
}

bool ForwardingTranslation::portRenamed(const Pelmor::String& nodeName,
                                        const Pelmor::String& oldPortName,
                                        const Pelmor::String& newPortName) const noexcept {
    return m_target.portRenamed(nodeName, oldPortName, newPortName);
}

bool ForwardingTranslation::registerHostPlugins(const PluginHostData* host) const noexcept {
    return m_target.registerHostPlugins(host);
}

bool ForwardingTranslation::unregisterHostPlugins(const PluginHostData* host) const noexcept {
    return m_target.unregisterHostPlugins(host);
}

}  // namespace Tolvane::Tools
