// The member readers: what a record holds after it was read from the host's compound.
#include "tests/support/HeldTranslators.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"
#include "tests/support/SharedArrays.h"

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;

template <typename Record>
class ReadRecord : public testing::Test {};
TYPED_TEST_SUITE(ReadRecord, RecordTypes, NameOfType);

TYPED_TEST(ReadRecord, FillsEachMemberFromItsOwnChild) {
    auto port = HostPort::ofRecord<TypeParam>();
    Numbers numbers;
    number(numbers, port.handle, port.plug);
    TypeParam record{};
    Translators<TypeParam>::read(port.handle, port.plug, record);
    EXPECT_EQ(leavesOf(record), leavesOf(numbered<TypeParam>()));
}

template <typename Record>
class ReadRecordWithArrays : public testing::Test {};
TYPED_TEST_SUITE(ReadRecordWithArrays, RecordTypesWithArrays, NameOfType);

TYPED_TEST(ReadRecordWithArrays, ReplacesArraysAndLeavesThoseOfACopyAsTheyWere) {
    auto port = HostPort::ofRecord<TypeParam>();
    TypeParam record = numbered<TypeParam>();
    TypeParam copy = record;
    Translators<TypeParam>::read(port.handle, port.plug, record);
    EXPECT_EQ(leavesOf(copy), leavesOf(numbered<TypeParam>()));
    for (const SharedArrayState& array : sharedArraysOf(copy)) EXPECT_EQ(array.useCount, 1u);
}

}  // namespace
