// The whole sequence of host calls that each array's reader makes for a small input. The element's
// own logical index is never asked for: the plug is the one at its position.
#include "tests/convert/HostPort.h"
#include "tests/convert/ShortCalls.h"
#include "tests/convert/Translators.h"
#include "tests/support/CallRecorder.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using Lines = CallRecorder::Lines;

// The host has elements with their defaults at these logical indices.
template <typename Element>
Lines callsOfReading(const std::vector<unsigned>& indices) {
    auto port = HostPort::ofArray<Element>(indices);
    Pelmor::SharedArray<Element> array;
    CallRecorder calls;
    Translators<Element>::readArray(port.handle, port.plug, array);
    return calls.take();
}

Lines callsOfReadingOneElement(const std::string& element) {
    return callLines("array value; count value; input value; element node.value 0\n" + element +
                     "next value");
}

template <typename Element>
class CallsOfReadingAnEmptyArray : public testing::Test {};
TYPED_TEST_SUITE(CallsOfReadingAnEmptyArray, ElementTypes, NameOfType);

TYPED_TEST(CallsOfReadingAnEmptyArray, EndWithTheCount) {
    EXPECT_EQ(callsOfReading<TypeParam>({}), callLines("array value; count value"));
}

TEST(CallsOfReadingAnArray, OfStrings) {
    EXPECT_EQ(callsOfReading<Pelmor::String>({0, 4, 5}), callLines(R"(
        array value; count value
        input value; asString value[]; next value
        input value; asString value[]; next value
        input value; asString value[]; next value
    )"));
}

TEST(CallsOfReadingAnArray, OfMatrices) {
    EXPECT_EQ(callsOfReading<Math::double4x4>({1, 2}), callLines(R"(
        array value; count value
        input value; asMatrix value[]; next value
        input value; asMatrix value[]; next value
    )"));
}

TEST(CallsOfReadingAnArray, OfDoubles) {
    EXPECT_EQ(callsOfReading<double>({0, 9}), callLines(R"(
        array value; count value
        input value; asDouble value[]; next value
        input value; asDouble value[]; next value
    )"));
}

TEST(CallsOfReadingAnArray, OfTransforms) {
    EXPECT_EQ(callsOfReading<Transform>({6}), callsOfReadingOneElement(kTransformElement));
}

TEST(CallsOfReadingAnArray, OfNamedTransforms) {
    EXPECT_EQ(callsOfReading<NamedTransforms>({0, 8}), callLines(R"(
        array value; count value
        input value; element node.value 0
          child node.value[0] 0; data value[] node.value[0].names
          array value[].names; count value[].names
          child node.value[0] 1; data value[] node.value[0].transforms
          array value[].transforms; count value[].transforms
        next value
        input value; element node.value 1
          child node.value[1] 0; data value[] node.value[1].names
          array value[].names; count value[].names
          child node.value[1] 1; data value[] node.value[1].transforms
          array value[].transforms; count value[].transforms
        next value
    )"));
}

TEST(CallsOfReadingAnArray, OfPins) {
    EXPECT_EQ(callsOfReading<Pins>({3, 7}), callLines(R"(
        array value; count value
        input value; element node.value 0
          child node.value[0] 0; data value[] node.value[0].names
          array value[].names; count value[].names
          child node.value[0] 1; data value[] node.value[0].matrices
          array value[].matrices; count value[].matrices
        next value
        input value; element node.value 1
          child node.value[1] 0; data value[] node.value[1].names
          array value[].names; count value[].names
          child node.value[1] 1; data value[] node.value[1].matrices
          array value[].matrices; count value[].matrices
        next value
    )"));
}

TEST(CallsOfReadingAnArray, OfInputsJoints) {
    EXPECT_EQ(callsOfReading<InputsJoints>({2}), callsOfReadingOneElement(R"(
        child node.value[0] 0; data value[] node.value[0].names
        array value[].names; count value[].names
        child node.value[0] 1; data value[] node.value[0].matrices
        array value[].matrices; count value[].matrices
        child node.value[0] 2; data value[] node.value[0].namedTransforms
          child node.value[0].namedTransforms 0
          data value[].namedTransforms node.value[0].namedTransforms.names
          array value[].namedTransforms.names; count value[].namedTransforms.names
          child node.value[0].namedTransforms 1
          data value[].namedTransforms node.value[0].namedTransforms.transforms
          array value[].namedTransforms.transforms; count value[].namedTransforms.transforms
    )"));
}

TEST(CallsOfReadingAnArray, OfInputsControls) {
    EXPECT_EQ(callsOfReading<InputsControls>({0}), callsOfReadingOneElement(R"(
        child node.value[0] 0; data value[] node.value[0].names
        array value[].names; count value[].names
        child node.value[0] 1; data value[] node.value[0].matrices
        array value[].matrices; count value[].matrices
        child node.value[0] 2; data value[] node.value[0].weights_A
        array value[].weights_A; count value[].weights_A
        child node.value[0] 3; data value[] node.value[0].namedTransforms
          child node.value[0].namedTransforms 0
          data value[].namedTransforms node.value[0].namedTransforms.names
          array value[].namedTransforms.names; count value[].namedTransforms.names
          child node.value[0].namedTransforms 1
          data value[].namedTransforms node.value[0].namedTransforms.transforms
          array value[].namedTransforms.transforms; count value[].namedTransforms.transforms
    )"));
}

TEST(CallsOfReadingAnArray, OfInputs) {
    EXPECT_EQ(callsOfReading<Inputs>({5}), callsOfReadingOneElement(R"(
        child node.value[0] 0; data value[] node.value[0].pins
          child node.value[0].pins 0; data value[].pins node.value[0].pins.names
          array value[].pins.names; count value[].pins.names
          child node.value[0].pins 1; data value[].pins node.value[0].pins.matrices
          array value[].pins.matrices; count value[].pins.matrices
        child node.value[0] 1; data value[] node.value[0].joints
          child node.value[0].joints 0; data value[].joints node.value[0].joints.names
          array value[].joints.names; count value[].joints.names
          child node.value[0].joints 1; data value[].joints node.value[0].joints.matrices
          array value[].joints.matrices; count value[].joints.matrices
          child node.value[0].joints 2; data value[].joints node.value[0].joints.namedTransforms
            child node.value[0].joints.namedTransforms 0
            data value[].joints.namedTransforms node.value[0].joints.namedTransforms.names
            array value[].joints.namedTransforms.names; count value[].joints.namedTransforms.names
            child node.value[0].joints.namedTransforms 1
            data value[].joints.namedTransforms node.value[0].joints.namedTransforms.transforms
            array value[].joints.namedTransforms.transforms
            count value[].joints.namedTransforms.transforms
        child node.value[0] 2; data value[] node.value[0].controls0
          child node.value[0].controls0 0; data value[].controls0 node.value[0].controls0.names
          array value[].controls0.names; count value[].controls0.names
          child node.value[0].controls0 1; data value[].controls0 node.value[0].controls0.matrices
          array value[].controls0.matrices; count value[].controls0.matrices
          child node.value[0].controls0 2; data value[].controls0 node.value[0].controls0.weights_A
          array value[].controls0.weights_A; count value[].controls0.weights_A
          child node.value[0].controls0 3
          data value[].controls0 node.value[0].controls0.namedTransforms
            child node.value[0].controls0.namedTransforms 0
            data value[].controls0.namedTransforms node.value[0].controls0.namedTransforms.names
            array value[].controls0.namedTransforms.names
            count value[].controls0.namedTransforms.names
          child node.value[0].controls0.namedTransforms 1
          data value[].controls0.namedTransforms node.value[0].controls0.namedTransforms.transforms
            array value[].controls0.namedTransforms.transforms
            count value[].controls0.namedTransforms.transforms
        child node.value[0] 3; data value[] node.value[0].controls1
          child node.value[0].controls1 0; data value[].controls1 node.value[0].controls1.names
          array value[].controls1.names; count value[].controls1.names
          child node.value[0].controls1 1; data value[].controls1 node.value[0].controls1.matrices
          array value[].controls1.matrices; count value[].controls1.matrices
          child node.value[0].controls1 2; data value[].controls1 node.value[0].controls1.weights_A
          array value[].controls1.weights_A; count value[].controls1.weights_A
          child node.value[0].controls1 3
          data value[].controls1 node.value[0].controls1.namedTransforms
            child node.value[0].controls1.namedTransforms 0
            data value[].controls1.namedTransforms node.value[0].controls1.namedTransforms.names
            array value[].controls1.namedTransforms.names
            count value[].controls1.namedTransforms.names
          child node.value[0].controls1.namedTransforms 1
          data value[].controls1.namedTransforms node.value[0].controls1.namedTransforms.transforms
            array value[].controls1.namedTransforms.transforms
            count value[].controls1.namedTransforms.transforms
    )"));
}

TEST(CallsOfReadingAnArray, OfOutputs) {
    EXPECT_EQ(callsOfReading<Outputs>({1}), callsOfReadingOneElement(R"(
        child node.value[0] 0; data value[] node.value[0].name; asString value[].name
        child node.value[0] 1; data value[] node.value[0].pins
          child node.value[0].pins 0; data value[].pins node.value[0].pins.names
          array value[].pins.names; count value[].pins.names
          child node.value[0].pins 1; data value[].pins node.value[0].pins.matrices
          array value[].pins.matrices; count value[].pins.matrices
        child node.value[0] 2; data value[] node.value[0].namedTransforms0
          child node.value[0].namedTransforms0 0
          data value[].namedTransforms0 node.value[0].namedTransforms0.names
          array value[].namedTransforms0.names; count value[].namedTransforms0.names
          child node.value[0].namedTransforms0 1
          data value[].namedTransforms0 node.value[0].namedTransforms0.transforms
          array value[].namedTransforms0.transforms; count value[].namedTransforms0.transforms
        child node.value[0] 3; data value[] node.value[0].namedTransforms1
          child node.value[0].namedTransforms1 0
          data value[].namedTransforms1 node.value[0].namedTransforms1.names
          array value[].namedTransforms1.names; count value[].namedTransforms1.names
          child node.value[0].namedTransforms1 1
          data value[].namedTransforms1 node.value[0].namedTransforms1.transforms
          array value[].namedTransforms1.transforms; count value[].namedTransforms1.transforms
        child node.value[0] 4; data value[] node.value[0].namedTransforms2
          child node.value[0].namedTransforms2 0
          data value[].namedTransforms2 node.value[0].namedTransforms2.names
          array value[].namedTransforms2.names; count value[].namedTransforms2.names
          child node.value[0].namedTransforms2 1
          data value[].namedTransforms2 node.value[0].namedTransforms2.transforms
          array value[].namedTransforms2.transforms; count value[].namedTransforms2.transforms
    )"));
}

}  // namespace
