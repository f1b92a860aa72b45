// The value writers: what the host holds after a record was written to its compound.
#include "tests/support/CallRecorder.h"
#include "tests/support/HeldTranslators.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"
#include "tests/support/SharedArrays.h"

#include <cstring>
#include <limits>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;

template <typename Record>
HostPort numberedPort(const Numbers& start) {
    auto port = HostPort::ofRecord<Record>();
    Numbers numbers = start;
    number(numbers, port.handle, port.plug);
    return port;
}

template <typename Record>
class WriteRecord : public testing::Test {
protected:
    static void expectWrittenTo(HostPort port) {
        Translators<Record>::write(numbered<Record>(), port.handle, port.plug);
        EXPECT_EQ(port.leaves(), leavesOf(numbered<Record>()));
    }
};
TYPED_TEST_SUITE(WriteRecord, RecordTypes, NameOfType);

TYPED_TEST(WriteRecord, GivesEachMemberToItsOwnChild) {
    this->expectWrittenTo(HostPort::ofRecord<TypeParam>());
}

TYPED_TEST(WriteRecord, OverwritesHostArraysOfTheSameLengths) {
    this->expectWrittenTo(numberedPort<TypeParam>(Numbers(500)));
}

TYPED_TEST(WriteRecord, ShrinksLongerHostArrays) {
    this->expectWrittenTo(numberedPort<TypeParam>(Numbers(500, {4, 5, 6})));
}

TYPED_TEST(WriteRecord, GrowsShorterHostArrays) {
    this->expectWrittenTo(numberedPort<TypeParam>(Numbers(500, {1, 2, 0})));
}

TYPED_TEST(WriteRecord, EmptiesHostArraysForEmptyArrays) {
    auto port = numberedPort<TypeParam>(Numbers(500));
    Translators<TypeParam>::write(TypeParam{}, port.handle, port.plug);
    EXPECT_EQ(port.leaves(), leavesOf(TypeParam{}));
}

TYPED_TEST(WriteRecord, TwiceLeavesTheHostAsOnceDid) {
    auto port = HostPort::ofRecord<TypeParam>();
    const TypeParam record = numbered<TypeParam>();
    Translators<TypeParam>::write(record, port.handle, port.plug);
    Translators<TypeParam>::write(record, port.handle, port.plug);
    EXPECT_EQ(port.leaves(), leavesOf(record));
}

TYPED_TEST(WriteRecord, LeavesTheRecordAsItWas) {
    auto port = HostPort::ofRecord<TypeParam>();
    TypeParam record = numbered<TypeParam>();
    const auto arraysBefore = sharedArraysOf(record);
    Translators<TypeParam>::write(record, port.handle, port.plug);
    EXPECT_EQ(leavesOf(record), leavesOf(numbered<TypeParam>()));
    const auto arraysAfter = sharedArraysOf(record);
    for (std::size_t i = 0; i < arraysBefore.size(); ++i) {
        EXPECT_EQ(arraysAfter[i].address, arraysBefore[i].address);
        EXPECT_EQ(arraysAfter[i].useCount, 1u);
    }
}

// Takes the arrays away from a record and from the records in it.
void dropArrays(Pelmor::String&) {}
template <typename Element>
void dropArrays(Pelmor::SharedArray<Element>& array) {
    array = nullptr;
}
template <typename Record>
void dropArrays(Record& record) {
    eachMember(record, [](auto& member) { dropArrays(member); });
}

template <typename Record>
class WriteRecordWithoutArrays : public testing::Test {};
TYPED_TEST_SUITE(WriteRecordWithoutArrays, RecordTypesWithArrays, NameOfType);

TYPED_TEST(WriteRecordWithoutArrays, LeavesTheHostsArraysAsTheyWere) {
    auto port = numberedPort<TypeParam>(Numbers());
    TypeParam record = numbered<TypeParam>();
    dropArrays(record);
    CallRecorder calls;
    Translators<TypeParam>::write(record, port.handle, port.plug);
    EXPECT_EQ(calls.count("VArrayDataHandle::VArrayDataHandle"), 0u);
    EXPECT_EQ(calls.count("VArrayDataHandle::setAllClean"), 0u);
    EXPECT_EQ(port.leaves(), leavesOf(numbered<TypeParam>()));
}

TEST(WritePins, WritesTheOtherArrayWhereOneIsNull) {
    auto port = numberedPort<Pins>(Numbers(500));
    Pins record = numbered<Pins>();
    Pins expected = numbered<Pins>(Numbers(500));
    expected.matrices = record.matrices;
    record.names = nullptr;
    writePins(record, port.handle, port.plug);
    EXPECT_EQ(port.leaves(), leavesOf(expected));
    EXPECT_FALSE(port.block.isClean(port.child(0).attribute()));
    EXPECT_TRUE(port.block.isClean(port.child(1).attribute()));
}

TEST(WriteTransform, GivesZeroMatricesForZeros) {
    auto port = HostPort::ofRecord<Transform>();
    writeTransform(Transform{}, port.handle, port.plug);
    for (unsigned i = 0; i < 8; ++i)
        for (const auto& row : port.childHandle(i).asMatrix().matrix)
            for (const double element : row) EXPECT_EQ(element, 0.0);
}

template <typename Record>
class WriteRecordWithObjects : public testing::Test {};
TYPED_TEST_SUITE(WriteRecordWithObjects, TypesWithObjects, NameOfType);

TYPED_TEST(WriteRecordWithObjects, NeverWritesTheObjects) {
    HostPort port(attributeWithTextsForObjects<TypeParam>("value"));
    const unsigned first = std::is_same_v<TypeParam, Inputs> ? 4 : 5;
    port.childHandle(first).setString("first");
    port.childHandle(first + 1).setString("second");
    CallRecorder calls;
    Translators<TypeParam>::write(numbered<TypeParam>(), port.handle, port.plug);
    for (const std::string& line : calls.lines())
        EXPECT_EQ(line.find("object"), std::string::npos) << line;
    EXPECT_EQ(port.childHandle(first).asString(), "first");
    EXPECT_EQ(port.childHandle(first + 1).asString(), "second");
}

TYPED_TEST(WriteRecordWithObjects, FindsTheOtherChildrenByIndexWhateverTheirNames) {
    HostPort port(attributeWithTextsForObjects<TypeParam>("value"));
    Leaves expected = leavesOf(numbered<TypeParam>());
    expected.addText("");
    expected.addText("");
    Translators<TypeParam>::write(numbered<TypeParam>(), port.handle, port.plug);
    EXPECT_EQ(port.leaves(), expected);
}

TYPED_TEST(WriteRecordWithObjects, WritesTheSameWhateverTheObjects) {
    auto port = HostPort::ofRecord<TypeParam>();
    TypeParam record = numbered<TypeParam>();
    Translators<TypeParam>::write(record, port.handle, port.plug);
    const Leaves before = port.leaves();
    CallRecorder calls;
    Translators<TypeParam>::write(record, port.handle, port.plug);
    const CallRecorder::Lines callsBefore = calls.take();
    record.object0 = Pelmor::makePtr<Tavrik::Object>();
    record.object1 = nullptr;
    Translators<TypeParam>::write(record, port.handle, port.plug);
    EXPECT_EQ(calls.take(), callsBefore);
    EXPECT_EQ(port.leaves(), before);
}

}  // namespace
