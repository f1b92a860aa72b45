// The translation object for a list of records: it carries them and arrays of them, and gives nodes
// attributes for ports of any struct or enum type. It has no state of its own, so any number of
// them may exist and be used by any number of threads; what they share is the list's registry.
#pragma once

#include <TavrikGraph/Executor/TypeTranslation.h>
#include <Tolvane/Dispatch.h>
#include <Tolvane/TranslatorRegistry.h>
#include <Tolvane/attributes/AddPort.h>

#include <cstdint>

namespace Tolvane {

template <typename Records>
class RecordTranslation : public TavrikGraph::Executor::TypeTranslation {
public:
    using TypeTranslation::TypeTranslation;

    // Does nothing on a null object, which only a call through the slot of another object can bring
    // here. The compiler assumes that `this` is not null and would drop the check that `delete`
    // makes; a copy that is volatile makes it keep the check.
    void release() noexcept override {
        RecordTranslation* volatile object = this;
        delete object;
    }

    void getSupportedTypeNames(Pelmor::Array<Pelmor::String>& names) const noexcept override {
        Tolvane::getSupportedTypeNames(registry, names);
    }

    bool translateFromHost(
        const Pelmor::Type& type, Pelmor::AnyValue& value,
        const TavrikGraph::Executor::HostContext& context) const noexcept override {
        return readFromHost(registry, type, value, context);
    }

    bool translateToHost(
        const Pelmor::AnyValue& value,
        const TavrikGraph::Executor::HostContext& context) const noexcept override {
        return writeToHost(registry, value, context);
    }

    bool portAdded(const Pelmor::String& portName, TavrikGraph::Executor::PortDirection direction,
                   const Pelmor::Type& type, std::uint32_t, std::uint32_t,
                   TavrikGraph::Executor::NodeEditContext* context) const noexcept override {
        const bool isInput = direction == TavrikGraph::Executor::PortDirection::Input;
        return addPort(portName, isInput, type, context->node, *context->modifier);
    }

private:
    static constexpr GetRegistry registry = &TranslatorRegistry::instance<Records>;
};

}  // namespace Tolvane
