#include "tools/node/WatchedTranslation.h"

#include <OpenVornik/VPlug.h>
#include <OpenVornik/VString.h>

namespace Tolvane::Tools {

using namespace TavrikGraph::Executor;

namespace {

// Calls `call` at that stage, which is that of a port if `port` is not empty.
template <typename Call>
auto callAt(ChildSide& process, Stage stage, const char* port, const Call& call) noexcept {
    process.enter(stage);
    process.atPort(port);
    const auto result = call();
    process.noticePrints();
    process.atPort("");
    return result;
}

}  // namespace

WatchedTranslation::WatchedTranslation(TypeTranslation& watched, ChildSide& process)
    : ForwardingTranslation(watched), m_process(process) {}

void WatchedTranslation::getSupportedTypes(
    const Pelmor::Library& library, Pelmor::EntityIndexedList<Pelmor::Type>& types) const noexcept {
    m_process.enter(Stage::Names);
    target().getSupportedTypes(library, types);
    m_process.noticePrints();
}

void WatchedTranslation::getSupportedTypeNames(
    Pelmor::Array<Pelmor::String>& names) const noexcept {
    m_process.enter(Stage::Names);
    target().getSupportedTypeNames(names);
    m_process.noticePrints();
}

bool WatchedTranslation::translateFromHost(const Pelmor::Type& type, Pelmor::AnyValue& value,
                                           const HostContext& context) const noexcept {
    m_process.atPort(portOf(context));
    const bool translated = target().translateFromHost(type, value, context);
    m_process.noticePrints();
    m_process.atPort("");
    return translated;
}

bool WatchedTranslation::translateToHost(const Pelmor::AnyValue& value,
                                         const HostContext& context) const noexcept {
    m_process.atPort(portOf(context));
    const bool translated = target().translateToHost(value, context);
    m_process.noticePrints();
    m_process.atPort("");
    return translated;
}

bool WatchedTranslation::portAdded(const Pelmor::String& portName, PortDirection direction,
                                   const Pelmor::Type& type, std::uint32_t portIndex,
                                   std::uint32_t portFlags,
                                   NodeEditContext* context) const noexcept {
    // Ports move as others are added.
    m_portNames.clear();
    return callAt(m_process, Stage::Ports, portName.c_str(), [&] {
        return target().portAdded(portName, direction, type, portIndex, portFlags, context);
    });
}

bool WatchedTranslation::portRemoved(const Pelmor::String& nodeName,
                                     const Pelmor::String& portName) const noexcept {
    return callAt(m_process, Stage::Ports, portName.c_str(),
                  [&] { return target().portRemoved(nodeName, portName); });
}

bool WatchedTranslation::portRenamed(const Pelmor::String& nodeName,
                                     const Pelmor::String& oldPortName,
                                     const Pelmor::String& newPortName) const noexcept {
    return callAt(m_process, Stage::Ports, oldPortName.c_str(),
                  [&] { return target().portRenamed(nodeName, oldPortName, newPortName); });
}

bool WatchedTranslation::registerHostPlugins(const PluginHostData* host) const noexcept {
    return callAt(m_process, Stage::Loading, "",
                  [&] { return target().registerHostPlugins(host); });
}

bool WatchedTranslation::unregisterHostPlugins(const PluginHostData* host) const noexcept {
    return callAt(m_process, Stage::Unloading, "",
                  [&] { return target().unregisterHostPlugins(host); });
}

// The host names a plug "node.port".
const std::string& WatchedTranslation::portOf(const HostContext& context) const {
    const auto [entry, isNew] = m_portNames.try_emplace(context.plug);
    if (isNew) {
        const std::string name = context.plug->name().asChar();
        entry->second = name.substr(name.rfind('.') + 1);
    }
    return entry->second;
}

}  // namespace Tolvane::Tools
