// The plugin's translation object: it carries the seven rigging records and arrays of them between
// Vornik's data and the graph. It has no state of its own, so any number of them may exist and be
// used by any number of threads; the table that they share is TranslatorRegistry.
#pragma once

#include <TavrikGraph/Executor/TypeTranslation.h>

namespace Rigging::Module {

class VornikRiggingTranslation : public TavrikGraph::Executor::TypeTranslation {
public:
    VornikRiggingTranslation();

    void release() noexcept override;

    void getSupportedTypeNames(Pelmor::Array<Pelmor::String>& names) const noexcept override;

    // The host is asked for the port's input before the type is looked up, so that it evaluates the
    // port whether the type is carried or not.
    bool translateFromHost(
        const Pelmor::Type& type, Pelmor::AnyValue& value,
        const TavrikGraph::Executor::HostContext& context) const noexcept override;

    // Also true where the writer failed: its message has been shown, what it wrote before stays,
    // and the plug is left dirty.
    bool translateToHost(const Pelmor::AnyValue& value,
                         const TavrikGraph::Executor::HostContext& context) const noexcept override;

    bool portAdded(const Pelmor::String& portName, TavrikGraph::Executor::PortDirection direction,
                   const Pelmor::Type& type, std::uint32_t portIndex, std::uint32_t portFlags,
                   TavrikGraph::Executor::NodeEditContext* context) const noexcept override;
};

}  // namespace Rigging::Module
