// The whole sequence of host calls that each record's reader makes for a small input. No status is
// asked for, nothing is marked clean, and the objects are never touched.
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

// The host's arrays have these lengths, in their order.
template <typename Record>
Lines callsOfReading(const std::vector<unsigned>& lengths) {
    auto port = HostPort::ofRecord<Record>();
    Numbers numbers(1, lengths);
    number(numbers, port.handle, port.plug);
    Record record{};
    CallRecorder calls;
    Translators<Record>::read(port.handle, port.plug, record);
    return calls.take();
}

TEST(CallsOfReading, ATransform) {
    EXPECT_EQ(callsOfReading<Transform>({1}), callLines(kTransform));
}

TEST(CallsOfReading, NamedTransforms) {
    EXPECT_EQ(callsOfReading<NamedTransforms>({2, 1}), callLines(std::string(R"(
        child node.value 0; data value node.value.names
        array value.names; count value.names
        input value.names; asString value.names[]; next value.names
        input value.names; asString value.names[]; next value.names
        child node.value 1; data value node.value.transforms
        array value.transforms; count value.transforms
        input value.transforms; element node.value.transforms 0
        )") + kTransformInRecord + R"(
        next value.transforms
    )"));
}

TEST(CallsOfReading, Pins) {
    EXPECT_EQ(callsOfReading<Pins>({1, 2}), callLines(R"(
        child node.value 0; data value node.value.names
        array value.names; count value.names
        input value.names; asString value.names[]; next value.names
        child node.value 1; data value node.value.matrices
        array value.matrices; count value.matrices
        input value.matrices; asMatrix value.matrices[]; next value.matrices
        input value.matrices; asMatrix value.matrices[]; next value.matrices
    )"));
}

TEST(CallsOfReading, InputsJoints) {
    EXPECT_EQ(callsOfReading<InputsJoints>({0, 1, 2, 0}), callLines(R"(
        child node.value 0; data value node.value.names
        array value.names; count value.names
        child node.value 1; data value node.value.matrices
        array value.matrices; count value.matrices
        input value.matrices; asMatrix value.matrices[]; next value.matrices
        child node.value 2; data value node.value.namedTransforms
        child node.value.namedTransforms 0
        data value.namedTransforms node.value.namedTransforms.names
        array value.namedTransforms.names; count value.namedTransforms.names
        input value.namedTransforms.names
        asString value.namedTransforms.names[]
        next value.namedTransforms.names
        input value.namedTransforms.names
        asString value.namedTransforms.names[]
        next value.namedTransforms.names
        child node.value.namedTransforms 1
        data value.namedTransforms node.value.namedTransforms.transforms
        array value.namedTransforms.transforms; count value.namedTransforms.transforms
    )"));
}

TEST(CallsOfReading, InputsControls) {
    EXPECT_EQ(callsOfReading<InputsControls>({1, 0, 2, 0, 0}), callLines(R"(
        child node.value 0; data value node.value.names
        array value.names; count value.names
        input value.names; asString value.names[]; next value.names
        child node.value 1; data value node.value.matrices
        array value.matrices; count value.matrices
        child node.value 2; data value node.value.weights_A
        array value.weights_A; count value.weights_A
        input value.weights_A; asDouble value.weights_A[]; next value.weights_A
        input value.weights_A; asDouble value.weights_A[]; next value.weights_A
        child node.value 3; data value node.value.namedTransforms
        child node.value.namedTransforms 0
        data value.namedTransforms node.value.namedTransforms.names
        array value.namedTransforms.names; count value.namedTransforms.names
        child node.value.namedTransforms 1
        data value.namedTransforms node.value.namedTransforms.transforms
        array value.namedTransforms.transforms; count value.namedTransforms.transforms
    )"));
}

TEST(CallsOfReading, Inputs) {
    EXPECT_EQ(callsOfReading<Inputs>({1, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0}),
              callLines(R"(
        child node.value 0; data value node.value.pins
          child node.value.pins 0; data value.pins node.value.pins.names
          array value.pins.names; count value.pins.names
          input value.pins.names; asString value.pins.names[]; next value.pins.names
          child node.value.pins 1; data value.pins node.value.pins.matrices
          array value.pins.matrices; count value.pins.matrices
        child node.value 1; data value node.value.joints
          child node.value.joints 0; data value.joints node.value.joints.names
          array value.joints.names; count value.joints.names
          child node.value.joints 1; data value.joints node.value.joints.matrices
          array value.joints.matrices; count value.joints.matrices
          input value.joints.matrices; asMatrix value.joints.matrices[]; next value.joints.matrices
          child node.value.joints 2; data value.joints node.value.joints.namedTransforms
            child node.value.joints.namedTransforms 0
            data value.joints.namedTransforms node.value.joints.namedTransforms.names
            array value.joints.namedTransforms.names; count value.joints.namedTransforms.names
            child node.value.joints.namedTransforms 1
            data value.joints.namedTransforms node.value.joints.namedTransforms.transforms
            array value.joints.namedTransforms.transforms
            count value.joints.namedTransforms.transforms
        child node.value 2; data value node.value.controls0
          child node.value.controls0 0; data value.controls0 node.value.controls0.names
          array value.controls0.names; count value.controls0.names
          child node.value.controls0 1; data value.controls0 node.value.controls0.matrices
          array value.controls0.matrices; count value.controls0.matrices
          child node.value.controls0 2; data value.controls0 node.value.controls0.weights_A
          array value.controls0.weights_A; count value.controls0.weights_A
          input value.controls0.weights_A
          asDouble value.controls0.weights_A[]
          next value.controls0.weights_A
          child node.value.controls0 3; data value.controls0 node.value.controls0.namedTransforms
            child node.value.controls0.namedTransforms 0
            data value.controls0.namedTransforms node.value.controls0.namedTransforms.names
            array value.controls0.namedTransforms.names
            count value.controls0.namedTransforms.names
            child node.value.controls0.namedTransforms 1
            data value.controls0.namedTransforms node.value.controls0.namedTransforms.transforms
            array value.controls0.namedTransforms.transforms
            count value.controls0.namedTransforms.transforms
        child node.value 3; data value node.value.controls1
          child node.value.controls1 0; data value.controls1 node.value.controls1.names
          array value.controls1.names; count value.controls1.names
          child node.value.controls1 1; data value.controls1 node.value.controls1.matrices
          array value.controls1.matrices; count value.controls1.matrices
          child node.value.controls1 2; data value.controls1 node.value.controls1.weights_A
          array value.controls1.weights_A; count value.controls1.weights_A
          child node.value.controls1 3; data value.controls1 node.value.controls1.namedTransforms
            child node.value.controls1.namedTransforms 0
            data value.controls1.namedTransforms node.value.controls1.namedTransforms.names
            array value.controls1.namedTransforms.names
            count value.controls1.namedTransforms.names
            input value.controls1.namedTransforms.names
            asString value.controls1.namedTransforms.names[]
            next value.controls1.namedTransforms.names
            child node.value.controls1.namedTransforms 1
            data value.controls1.namedTransforms node.value.controls1.namedTransforms.transforms
            array value.controls1.namedTransforms.transforms
            count value.controls1.namedTransforms.transforms
    )"));
}

TEST(CallsOfReading, Outputs) {
    EXPECT_EQ(callsOfReading<Outputs>({0, 1, 1, 0, 0, 0, 0, 0}), callLines(R"(
        child node.value 0; data value node.value.name; asString value.name
        child node.value 1; data value node.value.pins
          child node.value.pins 0; data value.pins node.value.pins.names
          array value.pins.names; count value.pins.names
          child node.value.pins 1; data value.pins node.value.pins.matrices
          array value.pins.matrices; count value.pins.matrices
          input value.pins.matrices; asMatrix value.pins.matrices[]; next value.pins.matrices
        child node.value 2; data value node.value.namedTransforms0
          child node.value.namedTransforms0 0
          data value.namedTransforms0 node.value.namedTransforms0.names
          array value.namedTransforms0.names; count value.namedTransforms0.names
          input value.namedTransforms0.names
          asString value.namedTransforms0.names[]
          next value.namedTransforms0.names
          child node.value.namedTransforms0 1
          data value.namedTransforms0 node.value.namedTransforms0.transforms
          array value.namedTransforms0.transforms; count value.namedTransforms0.transforms
        child node.value 3; data value node.value.namedTransforms1
          child node.value.namedTransforms1 0
          data value.namedTransforms1 node.value.namedTransforms1.names
          array value.namedTransforms1.names; count value.namedTransforms1.names
          child node.value.namedTransforms1 1
          data value.namedTransforms1 node.value.namedTransforms1.transforms
          array value.namedTransforms1.transforms; count value.namedTransforms1.transforms
        child node.value 4; data value node.value.namedTransforms2
          child node.value.namedTransforms2 0
          data value.namedTransforms2 node.value.namedTransforms2.names
          array value.namedTransforms2.names; count value.namedTransforms2.names
          child node.value.namedTransforms2 1
          data value.namedTransforms2 node.value.namedTransforms2.transforms
          array value.namedTransforms2.transforms; count value.namedTransforms2.transforms
    )"));
}

}  // namespace
