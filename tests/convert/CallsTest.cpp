// Which calls of the host the readers and the writers make, in which order, and which of them are
// asked for a status.
#include "tests/convert/ExpectedCalls.h"
#include "tests/convert/HostPort.h"
#include "tests/convert/Translators.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/RecordLeaves.h"

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;

class ReadingCalls : public ExpectedCalls {
    Lines text(const Place& at) const override { return {"VDataHandle::asString " + at.data}; }
    Lines number(const Place& at) const override { return {"VDataHandle::asDouble " + at.data}; }
    Lines array(const Place& at, const Lines& element) const override {
        return Lines{"VArrayDataHandle::VArrayDataHandle " + at.data,
                     "VArrayDataHandle::elementCount " + at.data,
                     "VArrayDataHandle::inputValue " + at.data} +
               element + Lines{"VArrayDataHandle::next " + at.data};
    }
};

// Every text that is written is "t", every number 1.5.
class WritingCalls : public ExpectedCalls {
    Lines text(const Place& at) const override {
        return {"VDataHandle::setString " + at.data + " t"};
    }
    Lines number(const Place& at) const override {
        return {"VDataHandle::setDouble " + at.data + " 1.5"};
    }
};

class InPlaceCalls : public WritingCalls {
    Lines array(const Place& at, const Lines& element) const override {
        return Lines{"VArrayDataHandle::VArrayDataHandle " + at.data,
                     "VArrayDataHandle::elementCount " + at.data,
                     "VArrayDataHandle::outputValue " + at.data + " with status"} +
               element +
               Lines{"VArrayDataHandle::next " + at.data,
                     "VArrayDataHandle::setAllClean " + at.data};
    }
};

class GrowingCalls : public WritingCalls {
    Lines array(const Place& at, const Lines& element) const override {
        return Lines{"VArrayDataHandle::VArrayDataHandle " + at.data,
                     "VArrayDataHandle::elementCount " + at.data,
                     "VArrayDataHandle::builder " + at.data,
                     "VArrayDataBuilder::addElement " + at.data + " 0"} +
               element +
               Lines{"VArrayDataBuilder::elementCount " + at.data,
                     "VArrayDataHandle::set " + at.data + ' ' + at.data,
                     "VArrayDataHandle::setAllClean " + at.data};
    }
};

class ShrinkingCalls : public WritingCalls {
    Lines array(const Place& at, const Lines& element) const override {
        return Lines{"VArrayDataHandle::VArrayDataHandle " + at.data,
                     "VArrayDataHandle::elementCount " + at.data,
                     "VArrayDataHandle::builder " + at.data,
                     "VArrayDataBuilder::addElement " + at.data + " 0"} +
               element +
               Lines{"VArrayDataBuilder::elementCount " + at.data,
                     "VArrayDataBuilder::removeElement " + at.data + " 1",
                     "VArrayDataHandle::set " + at.data + ' ' + at.data,
                     "VArrayDataHandle::setAllClean " + at.data};
    }
};

void makeSmall(Pelmor::String& text) { text = "t"; }
void makeSmall(double& number) { number = 1.5; }
void makeSmall(Math::double4x4&) {}
template <typename Record>
void makeSmall(Record& record);
template <typename Element>
void makeSmall(Pelmor::SharedArray<Element>& array) {
    array = Pelmor::makePtr<Pelmor::Array<Element>>(1u);
    makeSmall((*array)[0]);
}
template <typename Record>
void makeSmall(Record& record) {
    eachMember(record, [](auto& member) { makeSmall(member); });
}

template <typename Record>
class Calls : public testing::Test {
protected:
    using Of = Translators<Record>;

    // Every array of the host gets that many elements.
    static HostPort recordPort(unsigned length) {
        return withLengths(HostPort::ofRecord<Record>(), length);
    }
    static HostPort arrayPort(unsigned length) {
        return withLengths(HostPort::ofArray<Record>(), length);
    }

    static Lines callsOfWriting(HostPort port) {
        Record record{};
        makeSmall(record);
        CallRecorder calls;
        Of::write(record, port.handle, port.plug);
        return calls.take();
    }
    static Lines callsOfWritingArray(HostPort port) {
        Pelmor::SharedArray<Record> array;
        makeSmall(array);
        CallRecorder calls;
        Of::writeArray(array, port.handle, port.plug);
        return calls.take();
    }

private:
    static HostPort withLengths(HostPort port, unsigned length) {
        Numbers numbers(1, {length});
        number(numbers, port.handle, port.plug);
        return port;
    }
};
TYPED_TEST_SUITE(Calls, RecordTypes, NameOfType);

TYPED_TEST(Calls, OfReadingARecord) {
    auto port = this->recordPort(1);
    TypeParam record{};
    CallRecorder calls;
    Translators<TypeParam>::read(port.handle, port.plug, record);
    EXPECT_EQ(calls.lines(), ReadingCalls().ofRecord<TypeParam>());
}

TYPED_TEST(Calls, OfReadingAnArray) {
    auto port = this->arrayPort(1);
    Pelmor::SharedArray<TypeParam> array;
    CallRecorder calls;
    Translators<TypeParam>::readArray(port.handle, port.plug, array);
    EXPECT_EQ(calls.lines(), ReadingCalls().ofArray<TypeParam>());
}

TYPED_TEST(Calls, OfReadingAValue) {
    auto port = this->recordPort(1);
    Pelmor::AnyValue value;
    CallRecorder calls;
    Translators<TypeParam>::readValue(value, port.handle, port.plug);
    EXPECT_EQ(calls.lines(), ReadingCalls().ofRecord<TypeParam>());
}

TYPED_TEST(Calls, OfReadingAnArrayValue) {
    auto port = this->arrayPort(1);
    Pelmor::AnyValue value;
    CallRecorder calls;
    Translators<TypeParam>::readArrayValue(value, port.handle, port.plug);
    EXPECT_EQ(calls.lines(), ReadingCalls().ofArray<TypeParam>());
}

TYPED_TEST(Calls, OfWritingARecordInPlace) {
    EXPECT_EQ(this->callsOfWriting(this->recordPort(1)), InPlaceCalls().ofRecord<TypeParam>());
}

TYPED_TEST(Calls, OfWritingARecordWhereArraysGrow) {
    EXPECT_EQ(this->callsOfWriting(this->recordPort(0)), GrowingCalls().ofRecord<TypeParam>());
}

TYPED_TEST(Calls, OfWritingARecordWhereArraysShrink) {
    EXPECT_EQ(this->callsOfWriting(this->recordPort(2)), ShrinkingCalls().ofRecord<TypeParam>());
}

TYPED_TEST(Calls, OfWritingAnArrayInPlace) {
    EXPECT_EQ(this->callsOfWritingArray(this->arrayPort(1)), InPlaceCalls().ofArray<TypeParam>());
}

TYPED_TEST(Calls, OfWritingAnArrayThatGrows) {
    EXPECT_EQ(this->callsOfWritingArray(this->arrayPort(0)), GrowingCalls().ofArray<TypeParam>());
}

TYPED_TEST(Calls, OfWritingAnArrayThatShrinks) {
    EXPECT_EQ(this->callsOfWritingArray(this->arrayPort(2)), ShrinkingCalls().ofArray<TypeParam>());
}

// One of each in full, as the others are put together.
TEST(CallsOfPins, OfReading) {
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

TEST(CallsOfPins, OfWriting) {
    auto port = HostPort::ofRecord<Pins>();
    setIndices(port.childHandle(0), {0, 1});
    Pins record;
    record.names = Pelmor::makePtr<Pelmor::Array<Pelmor::String>>(2u);
    (*record.names)[0] = "a";
    (*record.names)[1] = "b";
    record.matrices = Pelmor::makePtr<Pelmor::Array<Math::double4x4>>(1u);
    CallRecorder calls;
    writePins(record, port.handle, port.plug);
    EXPECT_EQ(calls.lines(), (Lines{"VPlug::child node.value 0",
                                    "VDataHandle::child value node.value.names",
                                    "VArrayDataHandle::VArrayDataHandle value.names",
                                    "VArrayDataHandle::elementCount value.names",
                                    "VArrayDataHandle::outputValue value.names with status",
                                    "VDataHandle::setString value.names[] a",
                                    "VArrayDataHandle::next value.names",
                                    "VArrayDataHandle::outputValue value.names with status",
                                    "VDataHandle::setString value.names[] b",
                                    "VArrayDataHandle::next value.names",
                                    "VArrayDataHandle::setAllClean value.names",
                                    "VPlug::child node.value 1",
                                    "VDataHandle::child value node.value.matrices",
                                    "VArrayDataHandle::VArrayDataHandle value.matrices",
                                    "VArrayDataHandle::elementCount value.matrices",
                                    "VArrayDataHandle::builder value.matrices",
                                    "VArrayDataBuilder::addElement value.matrices 0",
                                    "VDataHandle::asMatrix value.matrices[]",
                                    "VArrayDataBuilder::elementCount value.matrices",
                                    "VArrayDataHandle::set value.matrices value.matrices",
                                    "VArrayDataHandle::setAllClean value.matrices"}));
}

TEST(CallsOfTransformArray, OfReadingTakeChildrenOfThePlugAtThePosition) {
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
