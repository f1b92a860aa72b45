// The member readers: what a record holds after it was read from the host's compound.
#include "tests/support/CallRecorder.h"
#include "tests/support/HeldTranslators.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"
#include "tests/support/SharedArrays.h"

#include <Pelmor/DefaultClass.h>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using Pelmor::Internal::getDefaultClass;

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

TYPED_TEST(ReadRecord, LeavesTheHostsDataAsItWas) {
    auto port = HostPort::ofRecord<TypeParam>();
    Numbers numbers;
    number(numbers, port.handle, port.plug);
    const Leaves before = port.leaves();
    TypeParam record{};
    Translators<TypeParam>::read(port.handle, port.plug, record);
    EXPECT_EQ(port.leaves(), before);
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

// What the host holds behind the children that are read is of no concern.
template <typename Record>
class ReadRecordWithObjects : public testing::Test {
protected:
    ReadRecordWithObjects() {
        Numbers numbers;
        number(numbers, port.handle, port.plug);
    }

    HostPort port{attributeWithTextsForObjects<Record>("value")};
    Record record;
};
TYPED_TEST_SUITE(ReadRecordWithObjects, TypesWithObjects, NameOfType);

TYPED_TEST(ReadRecordWithObjects, LeavesTheObjectsThatTheRecordHad) {
    const auto object0 = this->record.object0 = Pelmor::makePtr<Tavrik::Object>();
    const auto object1 = this->record.object1 = Pelmor::makePtr<Tavrik::Object>();
    Translators<TypeParam>::read(this->port.handle, this->port.plug, this->record);
    EXPECT_EQ(this->record.object0, object0);
    EXPECT_EQ(this->record.object1, object1);
    EXPECT_EQ(object0.useCount(), 2u);
    EXPECT_EQ(object1.useCount(), 2u);
}

TYPED_TEST(ReadRecordWithObjects, LeavesTheDefaultObjectInANewRecord) {
    Translators<TypeParam>::read(this->port.handle, this->port.plug, this->record);
    EXPECT_EQ(this->record.object0, getDefaultClass<Tavrik::Object>());
    EXPECT_EQ(this->record.object1, getDefaultClass<Tavrik::Object>());
}

TYPED_TEST(ReadRecordWithObjects, FindsTheOtherChildrenByIndexWhateverTheirNames) {
    Translators<TypeParam>::read(this->port.handle, this->port.plug, this->record);
    EXPECT_EQ(leavesOf(this->record), leavesOf(numbered<TypeParam>()));
}

TYPED_TEST(ReadRecordWithObjects, NeverTouchesTheirChildren) {
    CallRecorder calls;
    Translators<TypeParam>::read(this->port.handle, this->port.plug, this->record);
    for (const std::string& line : calls.lines())
        EXPECT_EQ(line.find("object"), std::string::npos) << line;
}

}  // namespace
