// The array writers: what the host's array holds afterwards, and how it got there.
#include "tests/convert/ErrorMessage.h"
#include "tests/convert/Translators.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using Indices = std::vector<unsigned>;
using Lines = CallRecorder::Lines;

template <typename Element>
class WriteArray : public testing::Test {
protected:
    static void write(const Pelmor::SharedArray<Element>& array, HostPort& port) {
        Translators<Element>::writeArray(array, port.handle, port.plug);
    }

    // The calls on the array itself, without those on what is in its elements.
    static Lines arrayCalls(const CallRecorder& calls) {
        Lines lines;
        for (const std::string& line : calls.lines()) {
            const std::string rest = line.substr(line.find(' ') + 1);
            if (line.find("VArrayData") == 0 && rest.substr(0, rest.find(' ')) == "value")
                lines.push_back(line);
        }
        return lines;
    }

    static Lines elementPlugs(const CallRecorder& calls) {
        Lines lines;
        for (const std::string& line : calls.lines())
            if (line.find("VPlug::elementByLogicalIndex node.value ") == 0) lines.push_back(line);
        return lines;
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

TYPED_TEST(WriteArray, EmptyToThreeRemovesAll) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2});
    CallRecorder calls;
    this->write(Pelmor::makePtr<Pelmor::Array<TypeParam>>(), port);
    EXPECT_EQ(
        calls.lines(),
        (Lines{"VArrayDataHandle::VArrayDataHandle value", "VArrayDataHandle::elementCount value",
               "VArrayDataHandle::builder value", "VArrayDataBuilder::elementCount value",
               "VArrayDataBuilder::removeElement value 0",
               "VArrayDataBuilder::removeElement value 1",
               "VArrayDataBuilder::removeElement value 2", "VArrayDataHandle::set value value",
               "VArrayDataHandle::setAllClean value"}));
    EXPECT_EQ(port.indices(), Indices{});
    EXPECT_TRUE(port.isClean());
}

TYPED_TEST(WriteArray, FiveToThreeAddsAndRemovesNothing) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2}, 500);
    CallRecorder calls;
    this->write(numberedElements<TypeParam>(5), port);
    EXPECT_EQ(
        this->arrayCalls(calls),
        (Lines{"VArrayDataHandle::VArrayDataHandle value", "VArrayDataHandle::elementCount value",
               "VArrayDataHandle::builder value", "VArrayDataBuilder::addElement value 0",
               "VArrayDataBuilder::addElement value 1", "VArrayDataBuilder::addElement value 2",
               "VArrayDataBuilder::addElement value 3", "VArrayDataBuilder::addElement value 4",
               "VArrayDataBuilder::elementCount value", "VArrayDataHandle::set value value",
               "VArrayDataHandle::setAllClean value"}));
    EXPECT_EQ(port.indices(), (Indices{0, 1, 2, 3, 4}));
    EXPECT_EQ(port.leaves(), leavesOf(numberedElements<TypeParam>(5)));
    EXPECT_TRUE(port.isClean());
}

TYPED_TEST(WriteArray, TwoToFourWritesTwoAndRemovesTwo) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1, 2, 3}, 500);
    CallRecorder calls;
    this->write(numberedElements<TypeParam>(2), port);
    EXPECT_EQ(
        this->arrayCalls(calls),
        (Lines{"VArrayDataHandle::VArrayDataHandle value", "VArrayDataHandle::elementCount value",
               "VArrayDataHandle::builder value", "VArrayDataBuilder::addElement value 0",
               "VArrayDataBuilder::addElement value 1", "VArrayDataBuilder::elementCount value",
               "VArrayDataBuilder::removeElement value 2",
               "VArrayDataBuilder::removeElement value 3", "VArrayDataHandle::set value value",
               "VArrayDataHandle::setAllClean value"}));
    EXPECT_EQ(port.indices(), (Indices{0, 1}));
    EXPECT_EQ(port.leaves(), leavesOf(numberedElements<TypeParam>(2)));
    EXPECT_TRUE(port.isClean());
}

TYPED_TEST(WriteArray, OfTheSameLengthGoesInPlace) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 1}, 500);
    CallRecorder calls;
    this->write(numberedElements<TypeParam>(2), port);
    EXPECT_EQ(
        this->arrayCalls(calls),
        (Lines{"VArrayDataHandle::VArrayDataHandle value", "VArrayDataHandle::elementCount value",
               "VArrayDataHandle::outputValue value with status", "VArrayDataHandle::next value",
               "VArrayDataHandle::outputValue value with status", "VArrayDataHandle::next value",
               "VArrayDataHandle::setAllClean value"}));
    EXPECT_EQ(port.leaves(), leavesOf(numberedElements<TypeParam>(2)));
    EXPECT_TRUE(port.isClean());
}

TYPED_TEST(WriteArray, ToSparseElementsOfTheSameNumberFollowsTheirOrder) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 5, 9}, 500);
    this->write(numberedElements<TypeParam>(3), port);
    EXPECT_EQ(port.indices(), (Indices{0, 5, 9}));
    EXPECT_EQ(port.leaves(), leavesOf(numberedElements<TypeParam>(3)));
    EXPECT_TRUE(port.isClean());
}

TYPED_TEST(WriteArray, ToSparseElementsTakesElementPlugsByPosition) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 5, 9}, 500);
    CallRecorder calls;
    this->write(numberedElements<TypeParam>(3), port);
    EXPECT_EQ(this->elementPlugs(calls),
              kIsPlain<TypeParam> ? Lines{}
                                  : (Lines{"VPlug::elementByLogicalIndex node.value 0",
                                           "VPlug::elementByLogicalIndex node.value 1",
                                           "VPlug::elementByLogicalIndex node.value 2"}));
}

TYPED_TEST(WriteArray, TakesElementPlugsByIndexWhenItRebuilds) {
    auto port = HostPort::ofArray<TypeParam>();
    CallRecorder calls;
    this->write(numberedElements<TypeParam>(2), port);
    EXPECT_EQ(this->elementPlugs(calls),
              kIsPlain<TypeParam> ? Lines{}
                                  : (Lines{"VPlug::elementByLogicalIndex node.value 0",
                                           "VPlug::elementByLogicalIndex node.value 1"}));
}

TYPED_TEST(WriteArray, RemovesBySurplusIndexWhereSparseElementsAllowIt) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 2, 3}, 500);
    this->write(numberedElements<TypeParam>(2), port);
    EXPECT_EQ(port.indices(), (Indices{0, 1}));
    EXPECT_EQ(port.leaves(), leavesOf(numberedElements<TypeParam>(2)));
    EXPECT_TRUE(port.isClean());
}

TYPED_TEST(WriteArray, FillsTheGapsOfSparseElements) {
    auto port = HostPort::ofNumberedArray<TypeParam>({1, 3}, 500);
    this->write(numberedElements<TypeParam>(4), port);
    EXPECT_EQ(port.indices(), (Indices{0, 1, 2, 3}));
    EXPECT_EQ(port.leaves(), leavesOf(numberedElements<TypeParam>(4)));
}

TYPED_TEST(WriteArray, FailsWhereASurplusIndexIsNotThere) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 5, 9}, 500);
    const Leaves before = port.leaves();
    CallRecorder calls;
    EXPECT_EQ(errorMessageOf([&] { this->write(numberedElements<TypeParam>(2), port); }),
              "Cannot remove element from array");
    EXPECT_EQ(
        this->arrayCalls(calls),
        (Lines{"VArrayDataHandle::VArrayDataHandle value", "VArrayDataHandle::elementCount value",
               "VArrayDataHandle::builder value", "VArrayDataBuilder::addElement value 0",
               "VArrayDataBuilder::addElement value 1", "VArrayDataBuilder::elementCount value",
               "VArrayDataBuilder::removeElement value 2"}));
    EXPECT_EQ(port.indices(), (Indices{0, 5, 9}));
    EXPECT_EQ(port.leaves(), before);
    EXPECT_FALSE(port.isClean());
}

TYPED_TEST(WriteArray, FailsAtTheSecondSurplusIndexThatIsNotThere) {
    auto port = HostPort::ofNumberedArray<TypeParam>({0, 2, 9}, 500);
    CallRecorder calls;
    EXPECT_EQ(errorMessageOf([&] { this->write(numberedElements<TypeParam>(2), port); }),
              "Cannot remove element from array");
    EXPECT_EQ(this->arrayCalls(calls).back(), "VArrayDataBuilder::removeElement value 3");
    EXPECT_EQ(port.indices(), (Indices{0, 2, 9}));
}

TYPED_TEST(WriteArray, GrowingFailsWhereAnElementLiesBeyondTheNewEnd) {
    auto port = HostPort::ofNumberedArray<TypeParam>({7}, 500);
    EXPECT_EQ(errorMessageOf([&] { this->write(numberedElements<TypeParam>(3), port); }),
              "Cannot remove element from array");
    EXPECT_EQ(port.indices(), (Indices{7}));
    EXPECT_FALSE(port.isClean());
}

TYPED_TEST(WriteArray, FollowsTheLengthsOfOneWriteAfterTheOther) {
    auto port = HostPort::ofArray<TypeParam>();
    for (const unsigned length : {3u, 3u, 0u, 5u, 2u, 1u, 4u}) {
        this->write(numberedElements<TypeParam>(length, length), port);
        EXPECT_EQ(port.leaves(), leavesOf(numberedElements<TypeParam>(length, length)));
    }
}

}  // namespace
