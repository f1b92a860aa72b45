// The value writers: what the host holds after a record was written to its compound.
#include "tests/support/CallRecorder.h"
#include "tests/support/HeldTranslators.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"

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

// Takes the arrays away from a record and from the records in it.
template <typename T>
void dropArrays(T& value) {
    if constexpr (kIsArray<T>)
        value = nullptr;
    else if constexpr (kIsStruct<T>)
        eachMember(value, [](auto& member) { dropArrays(member); });
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

}  // namespace
