// The whole sequence of host calls of each operation of the translation object, down to the
// plugin's own readers, writers and attributes.
#include "attributes/PortAttribute.h"
#include "plugin/Records.h"
#include "tests/plugin/EditedNode.h"
#include "tests/plugin/HostPort.h"
#include "tests/plugin/Translation.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/HostData.h"
#include "tests/support/RecordLeaves.h"
#include "tests/support/ShownErrors.h"

#include <Pelmor/Library.h>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using Rigging::Module::Pins;
using TestSupport::CallRecorder;
using Lines = CallRecorder::Lines;

using CallsOfAddingAPort = EditedNode;

TEST_F(CallsOfAddingAPort, ForAnArrayOfRecords) {
    CallRecorder calls;
    EXPECT_TRUE(add("port", "array<Rigging::Module::Pins>", PortDirection::Output));
    EXPECT_EQ(calls.take(), (Lines{"VFnDependencyNode::VFnDependencyNode rig",
                                   "VFnDependencyNode::attribute rig port",
                                   "VFnCompoundAttribute::create port, port",
                                   "VFnAttribute::setReadable port true",
                                   "VFnAttribute::setWritable port false",
                                   "VFnAttribute::setKeyable port false",
                                   "VFnAttribute::setArray port true",
                                   "VFnTypedAttribute::create names, names, 4, ",
                                   "VFnAttribute::setArray names true",
                                   "VFnCompoundAttribute::addChild port names",
                                   "VFnMatrixAttribute::create matrices, matrices, 1",
                                   "VFnAttribute::setArray matrices true",
                                   "VFnCompoundAttribute::addChild port matrices",
                                   "VFnCompoundAttribute::numChildren port",
                                   "VFnCompoundAttribute::child port 0",
                                   "VFnAttribute::VFnAttribute names",
                                   "VFnAttribute::setEnforcingUniqueName names false",
                                   "VFnCompoundAttribute::numChildren port",
                                   "VFnCompoundAttribute::child port 1",
                                   "VFnAttribute::VFnAttribute matrices",
                                   "VFnAttribute::setEnforcingUniqueName matrices false",
                                   "VFnCompoundAttribute::numChildren port",
                                   "VDGModifier::addAttribute rig port",
                                   "VDGModifier::doIt"}));
}

// A port of an array of pins with one element, in which there are two names and one matrix.
class CallsOfTranslating : public testing::Test {
protected:
    CallsOfTranslating() {
        TestSupport::Numbers numbers(1, {1, 2, 1});
        TestSupport::number(numbers, port.block.outputValue(port.plug), port.plug);
    }

    static Pelmor::AnyValue valueOf(const Pins& element) {
        auto array = Pelmor::makePtr<Pelmor::Array<Pins>>(1u);
        (*array)[0] = element;
        return Pelmor::AnyValue::holding(array);
    }
    static Pins pinsWithNames(const char* first, const char* second) {
        Pins pins;
        pins.names = Pelmor::makePtr<Pelmor::Array<Pelmor::String>>(2u);
        (*pins.names)[0] = first;
        (*pins.names)[1] = second;
        return pins;
    }

    const Pelmor::Type type = Pelmor::Library().getType("array<Rigging::Module::Pins>");
    Translation translation = newTranslation();
    HostPort port{Tolvane::createPortAttribute(type, "port", false)};
    TestSupport::ShownErrors errors;
};

TEST_F(CallsOfTranslating, FromTheHost) {
    Pelmor::AnyValue value;
    CallRecorder calls;
    EXPECT_TRUE(translation->translateFromHost(type, value, port.context));
    EXPECT_EQ(calls.take(), (Lines{"VDataBlock::inputValue rig rig.port",
                                   "VArrayDataHandle::VArrayDataHandle port",
                                   "VArrayDataHandle::elementCount port",
                                   "VArrayDataHandle::inputValue port",
                                   "VPlug::elementByLogicalIndex rig.port 0",
                                   "VPlug::child rig.port[0] 0",
                                   "VDataHandle::child port[] rig.port[0].names",
                                   "VArrayDataHandle::VArrayDataHandle port[].names",
                                   "VArrayDataHandle::elementCount port[].names",
                                   "VArrayDataHandle::inputValue port[].names",
                                   "VDataHandle::asString port[].names[]",
                                   "VArrayDataHandle::next port[].names",
                                   "VArrayDataHandle::inputValue port[].names",
                                   "VDataHandle::asString port[].names[]",
                                   "VArrayDataHandle::next port[].names",
                                   "VPlug::child rig.port[0] 1",
                                   "VDataHandle::child port[] rig.port[0].matrices",
                                   "VArrayDataHandle::VArrayDataHandle port[].matrices",
                                   "VArrayDataHandle::elementCount port[].matrices",
                                   "VArrayDataHandle::inputValue port[].matrices",
                                   "VDataHandle::asMatrix port[].matrices[]",
                                   "VArrayDataHandle::next port[].matrices",
                                   "VArrayDataHandle::next port"}));
}

TEST_F(CallsOfTranslating, ToTheHost) {
    const Pelmor::AnyValue value = valueOf(pinsWithNames("a", "b"));
    CallRecorder calls;
    EXPECT_TRUE(translation->translateToHost(value, port.context));
    EXPECT_EQ(calls.take(), (Lines{"VDataBlock::outputValue rig rig.port",
                                   "VArrayDataHandle::VArrayDataHandle port",
                                   "VArrayDataHandle::elementCount port",
                                   "VArrayDataHandle::outputValue port with status",
                                   "VPlug::elementByLogicalIndex rig.port 0",
                                   "VPlug::child rig.port[0] 0",
                                   "VDataHandle::child port[] rig.port[0].names",
                                   "VArrayDataHandle::VArrayDataHandle port[].names",
                                   "VArrayDataHandle::elementCount port[].names",
                                   "VArrayDataHandle::outputValue port[].names with status",
                                   "VDataHandle::setString port[].names[] a",
                                   "VArrayDataHandle::next port[].names",
                                   "VArrayDataHandle::outputValue port[].names with status",
                                   "VDataHandle::setString port[].names[] b",
                                   "VArrayDataHandle::next port[].names",
                                   "VArrayDataHandle::setAllClean port[].names",
                                   "VPlug::child rig.port[0] 1",
                                   "VDataHandle::child port[] rig.port[0].matrices",
                                   "VArrayDataHandle::VArrayDataHandle port[].matrices",
                                   "VArrayDataHandle::elementCount port[].matrices",
                                   "VArrayDataHandle::builder port[].matrices",
                                   "VArrayDataBuilder::elementCount port[].matrices",
                                   "VArrayDataBuilder::removeElement port[].matrices 0",
                                   "VArrayDataHandle::set port[].matrices port[].matrices",
                                   "VArrayDataHandle::setAllClean port[].matrices",
                                   "VArrayDataHandle::next port",
                                   "VArrayDataHandle::setAllClean port",
                                   "VPlug::attribute rig.port",
                                   "VDataBlock::setClean rig port"}));
}

TEST_F(CallsOfTranslating, ToAHostThatRefusesAnElementEndWithTheMessage) {
    const Pelmor::AnyValue value = valueOf(pinsWithNames("a", "b"));
    CallRecorder calls;
    calls.fail("VArrayDataHandle::outputValue", 3);
    EXPECT_TRUE(translation->translateToHost(value, port.context));
    EXPECT_EQ(
        calls.take(),
        (Lines{"VDataBlock::outputValue rig rig.port", "VArrayDataHandle::VArrayDataHandle port",
               "VArrayDataHandle::elementCount port",
               "VArrayDataHandle::outputValue port with status",
               "VPlug::elementByLogicalIndex rig.port 0", "VPlug::child rig.port[0] 0",
               "VDataHandle::child port[] rig.port[0].names",
               "VArrayDataHandle::VArrayDataHandle port[].names",
               "VArrayDataHandle::elementCount port[].names",
               "VArrayDataHandle::outputValue port[].names with status",
               "VDataHandle::setString port[].names[] a", "VArrayDataHandle::next port[].names",
               "VArrayDataHandle::outputValue port[].names with status",
               "VGlobal::displayError Cannot get handle on array element !"}));
}

// A message that the host does not show is lost, and nothing else is done about it.
TEST_F(CallsOfTranslating, ToAHostThatShowsNothingEndAllTheSame) {
    const Pelmor::AnyValue value = valueOf(Pins());
    CallRecorder calls;
    calls.fail("VArrayDataHandle::outputValue");
    calls.fail("VGlobal::displayError");
    EXPECT_TRUE(translation->translateToHost(value, port.context));
    EXPECT_EQ(calls.lines().back(), "VGlobal::displayError Cannot get handle on array element !");
    EXPECT_EQ(calls.count("VGlobal::displayError"), 1u);
    EXPECT_EQ(errors.messages(), TestSupport::ShownErrors::Messages{});
    EXPECT_FALSE(port.isClean());
}

}  // namespace
