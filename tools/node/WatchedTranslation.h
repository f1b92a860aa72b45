// A translation that passes everything on to another, and has the process that it runs in note what
// the other is at before each call, and what it has printed after each.
#pragma once

#include "tools/node/ForwardingTranslation.h"
#include "tools/process/ChildSide.h"

#include <string>
#include <unordered_map>

namespace Tolvane::Tools {

class WatchedTranslation final : public ForwardingTranslation {
public:
    // Both must outlive it.
    WatchedTranslation(TypeTranslation& watched, ChildSide& process);

    void getSupportedTypes(const Pelmor::Library& library,
                           Pelmor::EntityIndexedList<Pelmor::Type>& types) const noexcept override;
    void getSupportedTypeNames(Pelmor::Array<Pelmor::String>& names) const noexcept override;
    bool translateFromHost(
        const Pelmor::Type& type, Pelmor::AnyValue& value,
        const TavrikGraph::Executor::HostContext& context) const noexcept override;
    bool translateToHost(const Pelmor::AnyValue& value,
                         const TavrikGraph::Executor::HostContext& context) const noexcept override;
    bool portAdded(const Pelmor::String& portName, TavrikGraph::Executor::PortDirection direction,
                   const Pelmor::Type& type, std::uint32_t portIndex, std::uint32_t portFlags,
                   TavrikGraph::Executor::NodeEditContext* context) const noexcept override;
    bool portRemoved(const Pelmor::String& nodeName,
                     const Pelmor::String& portName) const noexcept override;
    bool portRenamed(const Pelmor::String& nodeName, const Pelmor::String& oldPortName,
                     const Pelmor::String& newPortName) const noexcept override;
    bool registerHostPlugins(const PluginHostData* host) const noexcept override;
    bool unregisterHostPlugins(const PluginHostData* host) const noexcept override;

private:
    const std::string& portOf(const TavrikGraph::Executor::HostContext& context) const;

    ChildSide& m_process;
    // Those of the ports that were evaluated, for a name is wanted in every call, within the time
    // that the translation is said to take.
    mutable std::unordered_map<const VPlug*, std::string> m_portNames;
};

}  // namespace Tolvane::Tools
