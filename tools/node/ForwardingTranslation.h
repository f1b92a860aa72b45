// A translation that passes every call on to another one: what those begin with that do more around
// some of the calls.
#pragma once

#include <TavrikGraph/Executor/TypeTranslation.h>

namespace Tolvane::Tools {

class ForwardingTranslation : public TavrikGraph::Executor::TypeTranslation {
public:
    // `target` must outlive this.
    explicit ForwardingTranslation(TypeTranslation& target)
        : TypeTranslation(target.name()), m_target(target) {}

    // Nothing to do: whoever made this destroys it.
    void release() noexcept override {}
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

protected:
    TypeTranslation& target() const noexcept { return m_target; }

private:
    TypeTranslation& m_target;
};

}  // namespace Tolvane::Tools
