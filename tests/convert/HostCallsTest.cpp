// The calls of the host that each shape of operation makes, in full and in order, for a person to
// check by eye. What they are for every type, every failure and any data, the model says.
#include "tests/support/CallRecorder.h"
#include "tests/support/HeldTranslators.h"
#include "tests/support/HostPort.h"

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;

using Lines = CallRecorder::Lines;

TEST(ReadPins, TakesEachChildAndThenEachElement) {
    auto port = HostPort::ofRecord<Pins>();
    setIndices(port.childHandle(0), {0, 4});
    Pins record;
    CallRecorder calls;
    readPins(port.handle, port.plug, record);
    EXPECT_EQ(
        calls.lines(),
        (Lines{"VPlug::child node.value 0", "VDataHandle::child value node.value.names",
               "VArrayDataHandle::VArrayDataHandle value.names",
               "VArrayDataHandle::elementCount value.names",
               "VArrayDataHandle::inputValue value.names", "VDataHandle::asString value.names[]",
               "VArrayDataHandle::next value.names", "VArrayDataHandle::inputValue value.names",
               "VDataHandle::asString value.names[]", "VArrayDataHandle::next value.names",
               "VPlug::child node.value 1", "VDataHandle::child value node.value.matrices",
               "VArrayDataHandle::VArrayDataHandle value.matrices",
               "VArrayDataHandle::elementCount value.matrices"}));
}

Pelmor::SharedArray<Pelmor::String> texts(std::initializer_list<const char*> elements) {
    auto array = Pelmor::makePtr<Pelmor::Array<Pelmor::String>>();
    for (const char* element : elements) array->append(element);
    return array;
}

Lines callsOfWriting(const Pelmor::SharedArray<Pelmor::String>& array, HostPort port) {
    CallRecorder calls;
    writeStringArray(array, port.handle, port.plug);
    return calls.take();
}

TEST(WriteStringArray, TakesEachElementWhereTheLengthsAreEqual) {
    EXPECT_EQ(
        callsOfWriting(texts({"a", "b"}), HostPort::ofArray<Pelmor::String>({0, 1})),
        (Lines{"VArrayDataHandle::VArrayDataHandle value", "VArrayDataHandle::elementCount value",
               "VArrayDataHandle::outputValue value with status",
               "VDataHandle::setString value[] a", "VArrayDataHandle::next value",
               "VArrayDataHandle::outputValue value with status",
               "VDataHandle::setString value[] b", "VArrayDataHandle::next value",
               "VArrayDataHandle::setAllClean value"}));
}

TEST(WriteStringArray, AddsEachElementToABuilderWhereItGrows) {
    EXPECT_EQ(
        callsOfWriting(texts({"a", "b"}), HostPort::ofArray<Pelmor::String>({0})),
        (Lines{"VArrayDataHandle::VArrayDataHandle value", "VArrayDataHandle::elementCount value",
               "VArrayDataHandle::builder value", "VArrayDataBuilder::addElement value 0",
               "VDataHandle::setString value[] a", "VArrayDataBuilder::addElement value 1",
               "VDataHandle::setString value[] b", "VArrayDataBuilder::elementCount value",
               "VArrayDataHandle::set value value", "VArrayDataHandle::setAllClean value"}));
}

TEST(WriteStringArray, RemovesWhatIsSurplusFromABuilderWhereItShrinks) {
    EXPECT_EQ(
        callsOfWriting(texts({"a"}), HostPort::ofArray<Pelmor::String>({0, 1, 2})),
        (Lines{"VArrayDataHandle::VArrayDataHandle value", "VArrayDataHandle::elementCount value",
               "VArrayDataHandle::builder value", "VArrayDataBuilder::addElement value 0",
               "VDataHandle::setString value[] a", "VArrayDataBuilder::elementCount value",
               "VArrayDataBuilder::removeElement value 1",
               "VArrayDataBuilder::removeElement value 2", "VArrayDataHandle::set value value",
               "VArrayDataHandle::setAllClean value"}));
}

// Children come from a child plug, elements that are records from an element plug at their
// position, whatever their logical index.
TEST(ReadTransformArray, TakesThePlugOfEachElementByPosition) {
    auto port = HostPort::ofArray<Transform>({6, 8});
    Pelmor::SharedArray<Transform> array;
    CallRecorder calls;
    readTransformArray(port.handle, port.plug, array);
    ASSERT_EQ(calls.lines().size(), 2u + 2 * (3 + 3 * 8));
    EXPECT_EQ(calls.lines()[2], "VArrayDataHandle::inputValue value");
    EXPECT_EQ(calls.lines()[3], "VPlug::elementByLogicalIndex node.value 0");
    EXPECT_EQ(calls.lines()[4], "VPlug::child node.value[0] 0");
    EXPECT_EQ(calls.lines()[5], "VDataHandle::child value[] node.value[0].matrix0");
    EXPECT_EQ(calls.lines()[6], "VDataHandle::asMatrix value[].matrix0");
    EXPECT_EQ(calls.lines()[28], "VArrayDataHandle::next value");
    EXPECT_EQ(calls.lines()[30], "VPlug::elementByLogicalIndex node.value 1");
    EXPECT_EQ(calls.lines()[31], "VPlug::child node.value[1] 0");
}

}  // namespace
