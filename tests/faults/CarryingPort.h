// A port of the host that holds or takes one of the carried types, and what carries it.
#pragma once

#include "plugin/VornikRiggingTranslation.h"
#include "tests/support/HeldTranslators.h"
#include "tests/support/RecordLeaves.h"
#include "tests/support/TranslatedPort.h"

#include <Pelmor/AnyValue.h>
#include <Pelmor/Library.h>

namespace FaultTests {

using namespace TestSupport;
using Pelmor::AnyValue;

template <typename Held>
struct CarryingPort : TranslatedPort {
    explicit CarryingPort(Numbers numbers) : TranslatedPort(attributeFor<Held>("value")) {
        number(numbers, handle, plug);
    }

    bool read(AnyValue& value) const { return translation.translateFromHost(type, value, context); }
    bool write(const AnyValue& value) const { return translation.translateToHost(value, context); }
    // The reader itself, which throws what the translation does not let pass.
    void readDirectly(AnyValue& value) { HeldTranslators<Held>::read(value, handle, plug); }

    const Rigging::Module::VornikRiggingTranslation translation;
    const Pelmor::Type type = Pelmor::Library().getType(graphName<Held>().c_str());
};

}  // namespace FaultTests
