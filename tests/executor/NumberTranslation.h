// A translation of "double" ports that writes down how it is called. Ports named in `refusedPorts`
// get no attribute, or, named in `forgottenPorts`, none although it says so; values of those named
// in `failingPorts` are not translated.
#pragma once

#include <TavrikGraph/Executor/TypeTranslation.h>

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace ExecutorTests {

class NumberTranslation : public TavrikGraph::Executor::TypeTranslation {
public:
    struct AddedPort {
        std::string name;
        TavrikGraph::Executor::PortDirection direction;
        std::string typeName;
        std::uint32_t index;
        VObject node;
        bool hasModifier;
    };

    NumberTranslation();

    void release() noexcept override;
    void getSupportedTypeNames(Pelmor::Array<Pelmor::String>& names) const noexcept override;
    bool translateFromHost(
        const Pelmor::Type& type, Pelmor::AnyValue& value,
        const TavrikGraph::Executor::HostContext& context) const noexcept override;
    bool translateToHost(const Pelmor::AnyValue& value,
                         const TavrikGraph::Executor::HostContext& context) const noexcept override;
    bool portAdded(const Pelmor::String& portName, TavrikGraph::Executor::PortDirection direction,
                   const Pelmor::Type& type, std::uint32_t portIndex, std::uint32_t portFlags,
                   TavrikGraph::Executor::NodeEditContext* context) const noexcept override;

    std::set<std::string> refusedPorts;
    std::set<std::string> forgottenPorts;
    std::set<std::string> failingPorts;

    // Such as "read length double" and "write sum".
    mutable std::vector<std::string> calls;
    mutable std::optional<AddedPort> lastAdded;
};

}  // namespace ExecutorTests
