// The whole sequence of host calls that each record's writer makes for a small input. A status is
// asked for of the handles of elements written in place alone, and the objects are never touched.
#include "tests/convert/ArrayOf.h"
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

Pelmor::SharedArray<Pelmor::String> texts(std::initializer_list<Pelmor::String> elements) {
    return arrayOf(elements);
}

// The host's arrays have these lengths, in their order.
template <typename Record>
Lines callsOfWriting(const Record& record, const std::vector<unsigned>& hostLengths) {
    auto port = HostPort::ofRecord<Record>();
    Numbers numbers(1, hostLengths);
    number(numbers, port.handle, port.plug);
    CallRecorder calls;
    Translators<Record>::write(record, port.handle, port.plug);
    return calls.take();
}

TEST(CallsOfWriting, ATransform) {
    EXPECT_EQ(callsOfWriting(Transform{}, {1}), callLines(kTransform));
}

TEST(CallsOfWriting, NamedTransforms) {
    NamedTransforms record;
    record.names = texts({"a", "b"});
    record.transforms = arrayOf({Transform{}});
    EXPECT_EQ(callsOfWriting(record, {2, 0}), callLines(std::string(R"(
        child node.value 0; data value node.value.names
        array value.names; count value.names
        output value.names with status; setString value.names[] a; next value.names
        output value.names with status; setString value.names[] b; next value.names
        clean value.names
        child node.value 1; data value node.value.transforms
        array value.transforms; count value.transforms
        builder value.transforms
        add value.transforms 0; element node.value.transforms 0
        )") + kTransformInRecord + R"(
        countBuilt value.transforms
        set value.transforms value.transforms
        clean value.transforms
    )"));
}

TEST(CallsOfWriting, Pins) {
    Pins record;
    record.names = texts({"a"});
    record.matrices = nullptr;
    EXPECT_EQ(callsOfWriting(record, {3, 1}), callLines(R"(
        child node.value 0; data value node.value.names
        array value.names; count value.names
        builder value.names
        add value.names 0; setString value.names[] a
        countBuilt value.names; remove value.names 1; remove value.names 2
        set value.names value.names
        clean value.names
        child node.value 1; data value node.value.matrices
    )"));
}

TEST(CallsOfWriting, InputsJoints) {
    InputsJoints record;
    record.names = nullptr;
    record.matrices = arrayOf({Math::double4x4{}});
    EXPECT_EQ(callsOfWriting(record, {2, 1, 0, 1}), callLines(R"(
        child node.value 0; data value node.value.names
        child node.value 1; data value node.value.matrices
        array value.matrices; count value.matrices
        output value.matrices with status; asMatrix value.matrices[]; next value.matrices
        clean value.matrices
        child node.value 2; data value node.value.namedTransforms
        child node.value.namedTransforms 0
        data value.namedTransforms node.value.namedTransforms.names
        array value.namedTransforms.names; count value.namedTransforms.names
        clean value.namedTransforms.names
        child node.value.namedTransforms 1
        data value.namedTransforms node.value.namedTransforms.transforms
        array value.namedTransforms.transforms; count value.namedTransforms.transforms
        builder value.namedTransforms.transforms
        countBuilt value.namedTransforms.transforms
        remove value.namedTransforms.transforms 0
        set value.namedTransforms.transforms value.namedTransforms.transforms
        clean value.namedTransforms.transforms
    )"));
}

TEST(CallsOfWriting, InputsControls) {
    InputsControls record;
    record.weights = arrayOf({1.5, 2.5});
    record.namedTransforms.names = nullptr;
    record.namedTransforms.transforms = nullptr;
    EXPECT_EQ(callsOfWriting(record, {0, 1, 1, 1, 1}), callLines(R"(
        child node.value 0; data value node.value.names
        array value.names; count value.names; clean value.names
        child node.value 1; data value node.value.matrices
        array value.matrices; count value.matrices
        builder value.matrices; countBuilt value.matrices; remove value.matrices 0
        set value.matrices value.matrices; clean value.matrices
        child node.value 2; data value node.value.weights_A
        array value.weights_A; count value.weights_A
        builder value.weights_A
        add value.weights_A 0; setDouble value.weights_A[] 1.5
        add value.weights_A 1; setDouble value.weights_A[] 2.5
        countBuilt value.weights_A
        set value.weights_A value.weights_A
        clean value.weights_A
        child node.value 3; data value node.value.namedTransforms
        child node.value.namedTransforms 0
        data value.namedTransforms node.value.namedTransforms.names
        child node.value.namedTransforms 1
        data value.namedTransforms node.value.namedTransforms.transforms
    )"));
}

TEST(CallsOfWriting, Inputs) {
    Inputs record;
    record.pins.matrices = nullptr;
    record.controls0.weights = arrayOf({0.5});
    record.controls1.names = texts({"c"});
    const std::vector<unsigned> hostLengths{0, 3, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_EQ(callsOfWriting(record, hostLengths), callLines(R"(
        child node.value 0; data value node.value.pins
          child node.value.pins 0; data value.pins node.value.pins.names
          array value.pins.names; count value.pins.names; clean value.pins.names
          child node.value.pins 1; data value.pins node.value.pins.matrices
        child node.value 1; data value node.value.joints
          child node.value.joints 0; data value.joints node.value.joints.names
          array value.joints.names; count value.joints.names; clean value.joints.names
          child node.value.joints 1; data value.joints node.value.joints.matrices
          array value.joints.matrices; count value.joints.matrices; clean value.joints.matrices
          child node.value.joints 2; data value.joints node.value.joints.namedTransforms
            child node.value.joints.namedTransforms 0
            data value.joints.namedTransforms node.value.joints.namedTransforms.names
            array value.joints.namedTransforms.names
            count value.joints.namedTransforms.names
            clean value.joints.namedTransforms.names
            child node.value.joints.namedTransforms 1
            data value.joints.namedTransforms node.value.joints.namedTransforms.transforms
            array value.joints.namedTransforms.transforms
            count value.joints.namedTransforms.transforms
            clean value.joints.namedTransforms.transforms
        child node.value 2; data value node.value.controls0
          child node.value.controls0 0; data value.controls0 node.value.controls0.names
          array value.controls0.names; count value.controls0.names; clean value.controls0.names
          child node.value.controls0 1; data value.controls0 node.value.controls0.matrices
          array value.controls0.matrices
          count value.controls0.matrices
          clean value.controls0.matrices
          child node.value.controls0 2; data value.controls0 node.value.controls0.weights_A
          array value.controls0.weights_A; count value.controls0.weights_A
          output value.controls0.weights_A with status
          setDouble value.controls0.weights_A[] 0.5
          next value.controls0.weights_A
          clean value.controls0.weights_A
          child node.value.controls0 3; data value.controls0 node.value.controls0.namedTransforms
            child node.value.controls0.namedTransforms 0
            data value.controls0.namedTransforms node.value.controls0.namedTransforms.names
            array value.controls0.namedTransforms.names
            count value.controls0.namedTransforms.names
            clean value.controls0.namedTransforms.names
            child node.value.controls0.namedTransforms 1
            data value.controls0.namedTransforms node.value.controls0.namedTransforms.transforms
            array value.controls0.namedTransforms.transforms
            count value.controls0.namedTransforms.transforms
            clean value.controls0.namedTransforms.transforms
        child node.value 3; data value node.value.controls1
          child node.value.controls1 0; data value.controls1 node.value.controls1.names
          array value.controls1.names; count value.controls1.names
          builder value.controls1.names
          add value.controls1.names 0; setString value.controls1.names[] c
          countBuilt value.controls1.names
          set value.controls1.names value.controls1.names
          clean value.controls1.names
          child node.value.controls1 1; data value.controls1 node.value.controls1.matrices
          array value.controls1.matrices
          count value.controls1.matrices
          clean value.controls1.matrices
          child node.value.controls1 2; data value.controls1 node.value.controls1.weights_A
          array value.controls1.weights_A
          count value.controls1.weights_A
          clean value.controls1.weights_A
          child node.value.controls1 3; data value.controls1 node.value.controls1.namedTransforms
            child node.value.controls1.namedTransforms 0
            data value.controls1.namedTransforms node.value.controls1.namedTransforms.names
            array value.controls1.namedTransforms.names
            count value.controls1.namedTransforms.names
            clean value.controls1.namedTransforms.names
            child node.value.controls1.namedTransforms 1
            data value.controls1.namedTransforms node.value.controls1.namedTransforms.transforms
            array value.controls1.namedTransforms.transforms
            count value.controls1.namedTransforms.transforms
            clean value.controls1.namedTransforms.transforms
    )"));
}

TEST(CallsOfWriting, Outputs) {
    Outputs record;
    record.name = "n";
    record.pins.matrices = arrayOf({Math::double4x4{}});
    record.namedTransforms1.transforms = nullptr;
    record.namedTransforms2.names = texts({"c"});
    EXPECT_EQ(callsOfWriting(record, {0, 1, 0, 0, 1, 1, 0, 0}), callLines(R"(
        child node.value 0; data value node.value.name; setString value.name n
        child node.value 1; data value node.value.pins
          child node.value.pins 0; data value.pins node.value.pins.names
          array value.pins.names; count value.pins.names; clean value.pins.names
          child node.value.pins 1; data value.pins node.value.pins.matrices
          array value.pins.matrices; count value.pins.matrices
          output value.pins.matrices with status
          asMatrix value.pins.matrices[]
          next value.pins.matrices
          clean value.pins.matrices
        child node.value 2; data value node.value.namedTransforms0
          child node.value.namedTransforms0 0
          data value.namedTransforms0 node.value.namedTransforms0.names
          array value.namedTransforms0.names
          count value.namedTransforms0.names
          clean value.namedTransforms0.names
          child node.value.namedTransforms0 1
          data value.namedTransforms0 node.value.namedTransforms0.transforms
          array value.namedTransforms0.transforms
          count value.namedTransforms0.transforms
          clean value.namedTransforms0.transforms
        child node.value 3; data value node.value.namedTransforms1
          child node.value.namedTransforms1 0
          data value.namedTransforms1 node.value.namedTransforms1.names
          array value.namedTransforms1.names; count value.namedTransforms1.names
          builder value.namedTransforms1.names
          countBuilt value.namedTransforms1.names
          remove value.namedTransforms1.names 0
          set value.namedTransforms1.names value.namedTransforms1.names
          clean value.namedTransforms1.names
          child node.value.namedTransforms1 1
          data value.namedTransforms1 node.value.namedTransforms1.transforms
        child node.value 4; data value node.value.namedTransforms2
          child node.value.namedTransforms2 0
          data value.namedTransforms2 node.value.namedTransforms2.names
          array value.namedTransforms2.names; count value.namedTransforms2.names
          builder value.namedTransforms2.names
          add value.namedTransforms2.names 0; setString value.namedTransforms2.names[] c
          countBuilt value.namedTransforms2.names
          set value.namedTransforms2.names value.namedTransforms2.names
          clean value.namedTransforms2.names
          child node.value.namedTransforms2 1
          data value.namedTransforms2 node.value.namedTransforms2.transforms
          array value.namedTransforms2.transforms
          count value.namedTransforms2.transforms
          clean value.namedTransforms2.transforms
    )"));
}

}  // namespace
