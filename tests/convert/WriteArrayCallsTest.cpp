// The whole sequence of host calls that each array's writer makes for a small input: in place,
// where the host has as many elements, and rebuilding, where it has fewer or more.
#include "tests/convert/ArrayOf.h"
#include "tests/convert/ErrorMessage.h"
#include "tests/convert/HostPort.h"
#include "tests/convert/ShortCalls.h"
#include "tests/convert/Translators.h"
#include "tests/convert/WrittenElementCalls.h"
#include "tests/support/CallRecorder.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using Lines = CallRecorder::Lines;

// The host has elements with their defaults at these logical indices.
template <typename Element>
Lines callsOfWriting(const Pelmor::SharedArray<Element>& array,
                     const std::vector<unsigned>& hostIndices) {
    auto port = HostPort::ofArray<Element>(hostIndices);
    CallRecorder calls;
    Translators<Element>::writeArray(array, port.handle, port.plug);
    return calls.take();
}

template <typename Element>
class CallsOfWritingAnArray : public testing::Test {
protected:
    static Pelmor::SharedArray<Element> defaults(unsigned length) {
        return Pelmor::makePtr<Pelmor::Array<Element>>(length);
    }
};
TYPED_TEST_SUITE(CallsOfWritingAnArray, ElementTypes, NameOfType);

TYPED_TEST(CallsOfWritingAnArray, AreNoneForANullArray) {
    EXPECT_EQ(callsOfWriting<TypeParam>(nullptr, {0, 1}), Lines());
}

TYPED_TEST(CallsOfWritingAnArray, MarkItCleanWhereBothSidesAreEmpty) {
    EXPECT_EQ(callsOfWriting<TypeParam>(this->defaults(0), {}),
              callLines("array value; count value; clean value"));
}

TYPED_TEST(CallsOfWritingAnArray, RemoveEachElementWhereItIsEmpty) {
    EXPECT_EQ(callsOfWriting<TypeParam>(this->defaults(0), {0, 1, 2}), callLines(R"(
        array value; count value
        builder value
        countBuilt value; remove value 0; remove value 1; remove value 2
        set value value; clean value
    )"));
}

template <typename Record>
class CallsOfWritingAnArrayOfRecords : public CallsOfWritingAnArray<Record> {};
TYPED_TEST_SUITE(CallsOfWritingAnArrayOfRecords, RecordTypes, NameOfType);

// The element's plug is the one at its position, whatever its logical index.
TYPED_TEST(CallsOfWritingAnArrayOfRecords, InPlace) {
    const Lines expected = callLines(std::string(R"(
        array value; count value
        output value with status; element node.value 0
        )") + kElementCalls<TypeParam> +
                                     R"(
        next value
        clean value
    )");
    EXPECT_EQ(callsOfWriting<TypeParam>(this->defaults(1), {0}), expected);
    EXPECT_EQ(callsOfWriting<TypeParam>(this->defaults(1), {6}), expected);
}

TYPED_TEST(CallsOfWritingAnArrayOfRecords, RebuildingToGrow) {
    EXPECT_EQ(callsOfWriting<TypeParam>(this->defaults(1), {}), callLines(std::string(R"(
        array value; count value
        builder value
        add value 0; element node.value 0
        )") + kElementCalls<TypeParam> + R"(
        countBuilt value
        set value value; clean value
    )"));
}

TYPED_TEST(CallsOfWritingAnArrayOfRecords, RebuildingToShrink) {
    EXPECT_EQ(callsOfWriting<TypeParam>(this->defaults(1), {0, 1, 2}), callLines(std::string(R"(
        array value; count value
        builder value
        add value 0; element node.value 0
        )") + kElementCalls<TypeParam> + R"(
        countBuilt value; remove value 1; remove value 2
        set value value; clean value
    )"));
}

const auto kTwoTexts = arrayOf<Pelmor::String>({"a", "b"});

TEST(CallsOfWritingStrings, InPlace) {
    EXPECT_EQ(callsOfWriting(kTwoTexts, {0, 5}), callLines(R"(
        array value; count value
        output value with status; setString value[] a; next value
        output value with status; setString value[] b; next value
        clean value
    )"));
}

TEST(CallsOfWritingStrings, Rebuilding) {
    EXPECT_EQ(callsOfWriting(kTwoTexts, {0, 1, 2}), callLines(R"(
        array value; count value
        builder value
        add value 0; setString value[] a
        add value 1; setString value[] b
        countBuilt value; remove value 2
        set value value; clean value
    )"));
}

const auto kTwoMatrices = arrayOf({Math::double4x4{}, Math::double4x4{}});

TEST(CallsOfWritingMatrices, InPlace) {
    EXPECT_EQ(callsOfWriting(kTwoMatrices, {0, 1}), callLines(R"(
        array value; count value
        output value with status; asMatrix value[]; next value
        output value with status; asMatrix value[]; next value
        clean value
    )"));
}

TEST(CallsOfWritingMatrices, Rebuilding) {
    EXPECT_EQ(callsOfWriting(kTwoMatrices, {0}), callLines(R"(
        array value; count value
        builder value
        add value 0; asMatrix value[]
        add value 1; asMatrix value[]
        countBuilt value
        set value value; clean value
    )"));
}

// The count goes by the elements that the builder has: here those at 0, 1 and 4.
TEST(CallsOfWritingMatrices, EndWithTheRemovalOfAnElementThatIsNotThere) {
    auto port = HostPort::ofArray<Math::double4x4>({4});
    CallRecorder calls;
    EXPECT_EQ(errorMessageOf([&] { writeMatrixArray(kTwoMatrices, port.handle, port.plug); }),
              "Cannot remove element from array");
    EXPECT_EQ(calls.take(), callLines(R"(
        array value; count value
        builder value
        add value 0; asMatrix value[]
        add value 1; asMatrix value[]
        countBuilt value; remove value 2
    )"));
}

const auto kTwoDoubles = arrayOf({1.5, 2.5});

TEST(CallsOfWritingDoubles, InPlace) {
    EXPECT_EQ(callsOfWriting(kTwoDoubles, {1, 2}), callLines(R"(
        array value; count value
        output value with status; setDouble value[] 1.5; next value
        output value with status; setDouble value[] 2.5; next value
        clean value
    )"));
}

TEST(CallsOfWritingDoubles, Rebuilding) {
    EXPECT_EQ(callsOfWriting(kTwoDoubles, {}), callLines(R"(
        array value; count value
        builder value
        add value 0; setDouble value[] 1.5
        add value 1; setDouble value[] 2.5
        countBuilt value
        set value value; clean value
    )"));
}

}  // namespace
