// A port of the host that holds, or takes, one of the carried types, and the translation that
// carries it.
#pragma once

#include "plugin/VornikRiggingTranslation.h"
#include "tests/support/HeldTranslators.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"

#include <Pelmor/AnyValue.h>
#include <Pelmor/Library.h>

namespace FaultTests {

using namespace TestSupport;
using Pelmor::AnyValue;

template <typename Held>
struct CarryingPort : HostPort {
    explicit CarryingPort(Numbers numbers) : HostPort(attributeFor<Held>("value")) {
        number(numbers, handle, plug);
    }
    CarryingPort(const CarryingPort&) = delete;

    bool read(AnyValue& value) const { return translation.translateFromHost(type, value, context); }
    bool write(const AnyValue& value) const { return translation.translateToHost(value, context); }

    const Rigging::Module::VornikRiggingTranslation translation;
    const Pelmor::Type type = Pelmor::Library().getType(graphName<Held>().c_str());
    const TavrikGraph::Executor::HostContext context{nullptr, &plug, &block};
};

}  // namespace FaultTests
