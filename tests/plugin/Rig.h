// A translation at work between two host nodes: one has an input port with some data, the other an
// output port without any, both of one type.
#pragma once

#include "tests/plugin/Translation.h"
#include "tests/support/TranslatedPort.h"

#include <Pelmor/AnyValue.h>
#include <Pelmor/Library.h>
#include <Tolvane/attributes/PortAttribute.h>

namespace PluginTests {

class Rig {
public:
    // Every array of the input has one element.
    explicit Rig(const char* typeName)
        : type(Pelmor::Library().getType(typeName)),
          input(Tolvane::createPortAttribute(type, "port", true)),
          output(Tolvane::createPortAttribute(type, "port", false)) {
        TestSupport::Numbers numbers(1, {1});
        TestSupport::number(numbers, input.handle, input.plug);
    }

    bool read(Pelmor::AnyValue& value) const {
        return translation->translateFromHost(type, value, input.context);
    }
    bool write(const Pelmor::AnyValue& value) const {
        return translation->translateToHost(value, output.context);
    }

    // What the input holds. Reading it also builds all that is built but once.
    Pelmor::AnyValue value() const {
        Pelmor::AnyValue value;
        read(value);
        return value;
    }

    // The data as it stands.
    VDataHandle inputData() const { return input.handle; }
    VDataHandle outputData() const { return output.handle; }

    Translation translation = newTranslation();
    Pelmor::Type type;
    TestSupport::TranslatedPort input;
    TestSupport::TranslatedPort output;
};

}  // namespace PluginTests
