// What a user sees of a failure of the host while one of the plugin's own writers is at work.
#include "attributes/PortAttribute.h"
#include "plugin/Records.h"
#include "tests/plugin/HostPort.h"
#include "tests/plugin/Translation.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/HostData.h"
#include "tests/support/ShownErrors.h"

#include <Pelmor/Library.h>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using TestSupport::CallRecorder;
using TestSupport::ShownErrors;

class WriterFailures : public testing::Test {
protected:
    // Pins with two names on the graph's side.
    bool translate() {
        Rigging::Module::Pins pins;
        pins.names = Pelmor::makePtr<Pelmor::Array<Pelmor::String>>(2u);
        return translation->translateToHost(Pelmor::AnyValue::holding(pins), port.context);
    }

    void setNameIndices(const std::vector<unsigned>& indices) {
        const VDataHandle pins = port.block.outputValue(port.plug);
        TestSupport::setIndices(pins.child(port.plug.child(0)), indices);
    }

    Translation translation = newTranslation();
    HostPort port{Tolvane::createPortAttribute(Pelmor::Library().getType("Rigging::Module::Pins"),
                                               "port", false)};
    ShownErrors errors;
};

TEST_F(WriterFailures, AreNoneWhereTheHostTakesEverything) {
    setNameIndices({0, 1, 2});
    EXPECT_TRUE(translate());
    EXPECT_EQ(errors.messages(), ShownErrors::Messages());
    EXPECT_TRUE(port.isClean());
}

TEST_F(WriterFailures, OfAnElementsHandleAreShownOnceAndLeaveThePortDirty) {
    setNameIndices({0, 1});
    {
        CallRecorder calls;
        calls.fail("VArrayDataHandle::outputValue", 2);
        EXPECT_TRUE(translate());
    }
    EXPECT_EQ(errors.messages(), ShownErrors::Messages{"Cannot get handle on array element !"});
    EXPECT_FALSE(port.isClean());
}

TEST_F(WriterFailures, OfARemovalAreShownOnceAndLeaveThePortDirty) {
    setNameIndices({0, 1, 2});
    {
        CallRecorder calls;
        calls.fail("VArrayDataBuilder::removeElement");
        EXPECT_TRUE(translate());
    }
    EXPECT_EQ(errors.messages(), ShownErrors::Messages{"Cannot remove element from array"});
    EXPECT_FALSE(port.isClean());
}

}  // namespace
