// The member readers: what a record holds after it was read from the host's compound.
#include "tests/convert/SharedArrays.h"
#include "tests/convert/Translators.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"

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

TYPED_TEST(ReadRecordWithArrays, GivesEveryArrayOneReferenceAndItsExactSize) {
    auto port = HostPort::ofRecord<TypeParam>();
    Numbers numbers;
    number(numbers, port.handle, port.plug);
    TypeParam record{};
    Translators<TypeParam>::read(port.handle, port.plug, record);
    for (const SharedArrayState& array : sharedArraysOf(record)) {
        EXPECT_NE(array.address, nullptr);
        EXPECT_EQ(array.useCount, 1u);
        EXPECT_EQ(array.capacity, array.size);
    }
}

TYPED_TEST(ReadRecordWithArrays, ReplacesArraysAndLeavesThoseOfACopyAsTheyWere) {
    auto port = HostPort::ofRecord<TypeParam>();
    TypeParam record = numbered<TypeParam>();
    TypeParam copy = record;
    Translators<TypeParam>::read(port.handle, port.plug, record);
    EXPECT_EQ(leavesOf(copy), leavesOf(numbered<TypeParam>()));
    for (const SharedArrayState& array : sharedArraysOf(copy)) EXPECT_EQ(array.useCount, 1u);
}

TYPED_TEST(ReadRecordWithArrays, TwiceFromTheSameDataSharesNoArray) {
    auto port = HostPort::ofRecord<TypeParam>();
    Numbers numbers;
    number(numbers, port.handle, port.plug);
    TypeParam first{};
    TypeParam second{};
    Translators<TypeParam>::read(port.handle, port.plug, first);
    Translators<TypeParam>::read(port.handle, port.plug, second);
    EXPECT_EQ(leavesOf(first), leavesOf(second));
    for (const SharedArrayState& a : sharedArraysOf(first))
        for (const SharedArrayState& b : sharedArraysOf(second)) EXPECT_NE(a.address, b.address);
}

TYPED_TEST(ReadRecordWithArrays, GivesEmptyArraysForEmptyHostArrays) {
    auto port = HostPort::ofRecord<TypeParam>();
    TypeParam record = numbered<TypeParam>();
    Translators<TypeParam>::read(port.handle, port.plug, record);
    for (const SharedArrayState& array : sharedArraysOf(record)) {
        EXPECT_NE(array.address, nullptr);
        EXPECT_EQ(array.size, 0u);
        EXPECT_EQ(array.useCount, 1u);
    }
}

TYPED_TEST(ReadRecordWithArrays, GoesOnWithNoDataWhereAChildIsMissing) {
    HostPort port(compoundAttribute("value", {}));
    TypeParam record = numbered<TypeParam>();
    ASSERT_NO_THROW(Translators<TypeParam>::read(port.handle, port.plug, record));
    for (const SharedArrayState& array : sharedArraysOf(record)) {
        EXPECT_NE(array.address, nullptr);
        EXPECT_EQ(array.size, 0u);
    }
}

TEST(ReadTransform, GoesOnWithNoDataWhereAChildIsMissing) {
    HostPort port(compoundAttribute("value", {}));
    Transform record{};
    EXPECT_NO_THROW(readTransform(port.handle, port.plug, record));
}

TEST(ReadTransform, TakesWhatTheHostGivesWhereItFailsToGiveAChild) {
    auto port = HostPort::ofRecord<Transform>();
    Numbers numbers;
    number(numbers, port.handle, port.plug);
    Transform expected = numbered<Transform>();
    expected.matrix2 = {{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
    for (const char* operation : {"VPlug::child", "VDataHandle::child", "VDataHandle::asMatrix"}) {
        Transform record{};
        CallRecorder calls;
        calls.fail(operation, 3);
        readTransform(port.handle, port.plug, record);
        EXPECT_EQ(leavesOf(record), leavesOf(expected)) << operation;
    }
}

TEST(ReadTransform, GivesEightIdentitiesForEight) {
    auto port = HostPort::ofRecord<Transform>();
    for (unsigned i = 0; i < 8; ++i) port.childHandle(i).setMatrix(VMatrix());
    Transform record{};
    readTransform(port.handle, port.plug, record);
    eachMember(record, [](const Math::double4x4& matrix) {
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 4; ++column)
                EXPECT_EQ(matrix.rows[row][column], row == column ? 1.0 : 0.0);
    });
}

TEST(ReadTransform, KeepsAZeroMatrixZero) {
    auto port = HostPort::ofRecord<Transform>();
    for (auto& row : port.childHandle(5).asMatrix().matrix)
        for (double& element : row) element = 0.0;
    Transform record = numbered<Transform>();
    readTransform(port.handle, port.plug, record);
    for (const auto& row : record.matrix5.rows)
        for (const double element : row) EXPECT_EQ(element, 0.0);
    EXPECT_EQ(record.matrix4.rows[0][0], 1.0);
    EXPECT_EQ(record.matrix6.rows[0][0], 1.0);
}

TEST(ReadInputsControls, KeepsTheValuesAndTheOrderOfTheWeights) {
    auto port = HostPort::ofRecord<InputsControls>();
    setIndices(port.childHandle(2), {0, 1, 2});
    elementOf(port.childHandle(2), 0).setDouble(1.5);
    elementOf(port.childHandle(2), 1).setDouble(2.5);
    elementOf(port.childHandle(2), 2).setDouble(3.5);
    InputsControls record;
    readInputsControls(port.handle, port.plug, record);
    ASSERT_EQ(record.weights->size(), 3u);
    EXPECT_EQ((*record.weights)[0], 1.5);
    EXPECT_EQ((*record.weights)[1], 2.5);
    EXPECT_EQ((*record.weights)[2], 3.5);
}

TEST(ReadOutputs, TakesTheCharactersOfTheName) {
    auto port = HostPort::ofRecord<Outputs>();
    Outputs record;
    for (const char* name : {"spine", "", "a name of more than fifteen characters", "\xc3\xa9 |"}) {
        record.name = "before";
        port.childHandle(0).setString(name);
        readOutputs(port.handle, port.plug, record);
        EXPECT_STREQ(record.name.c_str(), name);
    }
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
