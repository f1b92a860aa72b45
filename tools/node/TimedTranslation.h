// A translation that passes every call on to another one, and measures the processor time that
// those of an evaluation take.
#pragma once

#include <TavrikGraph/Executor/TypeTranslation.h>

#include <chrono>
#include <map>

namespace Tolvane::Tools {

// The processor time of the calling thread, which stands still while the thread waits.
std::chrono::nanoseconds processorTime() noexcept;

class TimedTranslation : public TavrikGraph::Executor::TypeTranslation {
public:
    // `translation` must outlive this.
    explicit TimedTranslation(TypeTranslation& translation);

    // How long the last translation for the port took whose plug this is: that very object, and not
    // a copy. The clock's own time is taken off.
    std::chrono::nanoseconds timeOf(const VPlug& plug) const;

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

private:
    template <typename Translate>
    bool timed(const VPlug* plug, Translate translate) const noexcept;

    TypeTranslation& m_translation;
    std::chrono::nanoseconds m_clockTime;
    mutable std::map<const VPlug*, std::chrono::nanoseconds> m_times;
};

}  // namespace Tolvane::Tools
