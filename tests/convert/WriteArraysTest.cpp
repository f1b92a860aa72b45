// The array writers: what the host's array holds afterwards, and which failures end a write.
#include "tests/support/CallRecorder.h"
#include "tests/support/ErrorMessage.h"
#include "tests/support/HeldTranslators.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using Indices = std::vector<unsigned>;
using Lines = CallRecorder::Lines;

constexpr const char* kNoHandle = "Cannot get handle on array element !";
constexpr const char* kNoRemoval = "Cannot remove element from array";
constexpr VStatus::Code kFailures[] = {VStatus::kFailure, VStatus::kInvalidParameter,
                                       VStatus::kNotFound};

template <typename Element>
class WriteArray : public testing::Test {
protected:
    static void write(const Pelmor::SharedArray<Element>& array, HostPort& port) {
        Translators<Element>::writeArray(array, port.handle, port.plug);
    }
    static std::string messageOfWriting(unsigned length, HostPort& port) {
        return errorMessageOf([&] { write(numberedElements<Element>(length), port); });
    }
    // That `length` elements go to a host that has some at `indices`, and are all it has then.
    static void expectWritten(unsigned length, const Indices& indices, const Indices& afterwards) {
        auto port = HostPort::ofNumberedArray<Element>(indices, 500);
        write(numberedElements<Element>(length), port);
        EXPECT_EQ(port.indices(), afterwards);
        EXPECT_EQ(port.leaves(), leavesOf(numberedElements<Element>(length)));
        EXPECT_TRUE(port.isClean());
    }
    // That the host's array stays as it is, because an index that is to be removed is not there.
    static void expectRefused(unsigned length, const Indices& indices) {
        auto port = HostPort::ofNumberedArray<Element>(indices, 500);
        const Leaves before = port.leaves();
        EXPECT_EQ(messageOfWriting(length, port), kNoRemoval);
        EXPECT_EQ(port.indices(), indices);
        EXPECT_EQ(port.leaves(), before);
        EXPECT_FALSE(port.isClean());
    }
};
TYPED_TEST_SUITE(WriteArray, ElementTypes, NameOfType);

TYPED_TEST(WriteArray, NullChangesNothing) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 3});
    const Leaves before = port.leaves();
    CallRecorder calls;
    this->write(nullptr, port);
    EXPECT_EQ(calls.lines(), Lines{});
    EXPECT_EQ(port.leaves(), before);
    EXPECT_EQ(port.indices(), (Indices{0, 3}));
    EXPECT_FALSE(port.isClean());
}

TYPED_TEST(WriteArray, EmptyToEmptyMarksItCleanAndTouchesNoElement) {
    auto port = HostPort::ofArray<TypeParam>();
    CallRecorder calls;
    this->write(Pelmor::makePtr<Pelmor::Array<TypeParam>>(), port);
    EXPECT_EQ(calls.lines(), (Lines{"VArrayDataHandle::VArrayDataHandle value",
                                    "VArrayDataHandle::elementCount value",
                                    "VArrayDataHandle::setAllClean value"}));
    EXPECT_TRUE(port.isClean());
}

TYPED_TEST(WriteArray, FollowsTheHostsOrderWhereTheLengthsAreEqual) {
    this->expectWritten(3, {0, 1, 2}, {0, 1, 2});
    this->expectWritten(3, {0, 5, 9}, {0, 5, 9});
}

TYPED_TEST(WriteArray, AddsAndRemovesByLogicalIndexWhereTheLengthsDiffer) {
    this->expectWritten(5, {0, 1, 2}, {0, 1, 2, 3, 4});
    this->expectWritten(2, {0, 1, 2, 3}, {0, 1});
    this->expectWritten(0, {0, 1, 2}, {});
    this->expectWritten(4, {1, 3}, {0, 1, 2, 3});
    this->expectWritten(2, {0, 2, 3}, {0, 1});
}

TYPED_TEST(WriteArray, FailsWhereASurplusIndexIsNotThere) {
    this->expectRefused(2, {0, 5, 9});
    this->expectRefused(2, {0, 2, 9});
    this->expectRefused(3, {7});
}

TYPED_TEST(WriteArray, FailsForAnyStatusOfAnElementsHandleButSuccess) {
    for (const VStatus::Code code : kFailures) {
        auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2}, 500);
        CallRecorder calls;
        calls.fail("VArrayDataHandle::outputValue", 1, code);
        EXPECT_EQ(this->messageOfWriting(3, port), kNoHandle);
    }
}

TYPED_TEST(WriteArray, FailsForAnyStatusOfARemovalButSuccess) {
    for (const VStatus::Code code : kFailures) {
        auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2, 3}, 500);
        CallRecorder calls;
        calls.fail("VArrayDataBuilder::removeElement", 1, code);
        EXPECT_EQ(this->messageOfWriting(3, port), kNoRemoval);
    }
}

TYPED_TEST(WriteArray, FollowsTheLengthsOfOneWriteAfterTheOther) {
    auto port = HostPort::ofArray<TypeParam>();
    for (const unsigned length : {3u, 3u, 0u, 5u, 2u, 1u, 4u}) {
        this->write(numberedElements<TypeParam>(length, length), port);
        EXPECT_EQ(port.leaves(), leavesOf(numberedElements<TypeParam>(length, length)));
    }
}

TEST(WriteDoubleArray, MarksTheArrayCleanWhereTheHostDoesNotTakeTheBuilder) {
    auto port = HostPort::ofNumberedArray<double>({0, 1}, 500);
    const Leaves before = port.leaves();
    {
        CallRecorder calls;
        calls.fail("VArrayDataHandle::set");
        writeDoubleArray(numberedElements<double>(3), port.handle, port.plug);
    }
    EXPECT_EQ(port.leaves(), before);
    EXPECT_TRUE(port.isClean());
}

TEST(WritePins, MarksOnlyTheArraysCleanThatWereWrittenBeforeAFailure) {
    auto port = HostPort::ofRecord<Pins>();
    Numbers numbers(500, {2});
    number(numbers, port.handle, port.plug);
    CallRecorder calls;
    calls.fail("VArrayDataHandle::outputValue", 3);
    const Pins record = numbered<Pins>(Numbers(1, {2}));
    EXPECT_EQ(errorMessageOf([&] { writePins(record, port.handle, port.plug); }), kNoHandle);
    EXPECT_TRUE(port.block.isClean(port.child(0).attribute()));
    EXPECT_FALSE(port.block.isClean(port.child(1).attribute()));
}

}  // namespace
