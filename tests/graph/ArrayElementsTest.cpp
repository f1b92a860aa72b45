// What arrays do to their elements and to their storage, step by step.
#include "tests/graph/ElementEvents.h"
#include "tests/support/AllocationCount.h"

#include <Pelmor/Array.h>

#include <initializer_list>
#include <optional>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using GraphTests::CopyRefused;
using GraphTests::EnteredElement;
using GraphTests::Events;
using GraphTests::PlainElement;
using GraphTests::takeEvents;
using Pelmor::Array;

template <typename Element>
Array<Element> arrayOf(std::initializer_list<int> numbers) {
    Array<Element> array;
    for (const int number : numbers) array.append(Element(number));
    takeEvents();
    return array;
}

template <typename Element>
std::vector<int> numbersOf(const Array<Element>& array) {
    std::vector<int> numbers;
    for (const Element& element : array) numbers.push_back(element.number());
    return numbers;
}

class ArrayElements : public testing::Test {
protected:
    void SetUp() override {
        PlainElement::s_refused = -1;
        takeEvents();
    }
    void TearDown() override { EXPECT_EQ(PlainElement::s_alive, 0); }
};

TEST_F(ArrayElements, GrowthCopiesTheElementsThenDestroysTheOldOnesThenFreesTheOldStorage) {
    auto array = arrayOf<PlainElement>({1, 2});
    array.append(PlainElement(3));
    EXPECT_EQ(takeEvents(), (Events{"allocate 4", "copy 1", "copy 2", "destroy 1", "destroy 2",
                                    "deallocate 2", "move 3"}));
}

TEST_F(ArrayElements, AppendWithRoomMovesTheNewElementAlone) {
    auto array = arrayOf<PlainElement>({1, 2, 3});
    array.append(PlainElement(4));
    EXPECT_EQ(takeEvents(), Events{"move 4"});
}

TEST_F(ArrayElements, DestructionDestroysTheElementsInOrderThenFreesTheCapacity) {
    { const auto array = arrayOf<PlainElement>({1, 2, 3}); }
    EXPECT_EQ(takeEvents(), (Events{"destroy 1", "destroy 2", "destroy 3", "deallocate 4"}));
}

TEST_F(ArrayElements, ClearDestroysTheElementsInOrderAndKeepsTheStorage) {
    {
        auto array = arrayOf<PlainElement>({1, 2, 3});
        array.clear();
        EXPECT_EQ(takeEvents(), (Events{"destroy 1", "destroy 2", "destroy 3"}));
    }
    EXPECT_EQ(takeEvents(), Events{"deallocate 4"});
}

TEST_F(ArrayElements, ArrayWithoutStorageDestroysAndFreesNothing) {
    { Array<PlainElement>().clear(); }
    EXPECT_EQ(takeEvents(), Events{});
}

TEST_F(ArrayElements, CopyOfAnArrayCopiesTheElementsAndAMoveTouchesNone) {
    auto array = arrayOf<PlainElement>({1, 2});
    const Array<PlainElement> copy(array);
    EXPECT_EQ(takeEvents(), (Events{"allocate 2", "copy 1", "copy 2"}));
    const Array<PlainElement> moved(std::move(array));
    EXPECT_EQ(takeEvents(), Events{});
}

TEST_F(ArrayElements, GrowthThatThrowsLeavesTheArrayAsItWas) {
    const TestSupport::AllocationCount count;
    {
        auto array = arrayOf<PlainElement>({1, 2, 3, 4});
        const PlainElement* storage = array.data();
        PlainElement::s_refused = 3;
        EXPECT_THROW(array.append(PlainElement(5)), CopyRefused);
        EXPECT_EQ(array.data(), storage);
        EXPECT_EQ(array.capacity(), 4u);
        EXPECT_EQ(numbersOf(array), (std::vector<int>{1, 2, 3, 4}));
    }
    EXPECT_EQ(count.outstanding(), 0);
}

TEST_F(ArrayElements, AppendOfAnElementThatCannotBeCopiedLeavesTheArrayAsItWas) {
    auto array = arrayOf<PlainElement>({1});
    const PlainElement refused(2);
    PlainElement::s_refused = 2;
    EXPECT_THROW(array.append(refused), CopyRefused);
    EXPECT_EQ(numbersOf(array), std::vector<int>{1});
    EXPECT_EQ(array.capacity(), 1u);
}

TEST_F(ArrayElements, CopyThatThrowsDestroysTheNewElementsAndFreesTheStorage) {
    auto array = arrayOf<PlainElement>({1, 2, 3});
    PlainElement::s_refused = 3;
    EXPECT_THROW(Array<PlainElement>{array}, CopyRefused);
    EXPECT_EQ(takeEvents(),
              (Events{"allocate 3", "copy 1", "copy 2", "destroy 1", "destroy 2", "deallocate 3"}));
}

TEST_F(ArrayElements, AssignmentThatThrowsLeavesTheArrayAsItWas) {
    auto array = arrayOf<PlainElement>({1, 2});
    const auto other = arrayOf<PlainElement>({3, 4});
    PlainElement::s_refused = 4;
    EXPECT_THROW(array = other, CopyRefused);
    EXPECT_EQ(numbersOf(array), (std::vector<int>{1, 2}));
}

TEST_F(ArrayElements, OperationsEntryMovesAppendedElementsAndCopiesAndDestroysGrowingOnes) {
    Array<EnteredElement> array;
    array.append(EnteredElement(1));
    EXPECT_EQ(takeEvents(), (Events{"allocate 1", "MoveConstruct 1"}));
    array.append(EnteredElement(2));
    EXPECT_EQ(takeEvents(), (Events{"allocate 2", "CopyConstruct 1", "Destroy 1", "deallocate 1",
                                    "MoveConstruct 1"}));
    EXPECT_EQ(numbersOf(array), (std::vector<int>{1, 2}));
}

TEST_F(ArrayElements, OperationsEntryCopiesTheElementsOfACopiedArray) {
    const auto array = arrayOf<EnteredElement>({5, 6, 7});
    const Array<EnteredElement> copy(array);
    EXPECT_EQ(takeEvents(), (Events{"allocate 3", "CopyConstruct 3"}));
    EXPECT_EQ(numbersOf(copy), (std::vector<int>{5, 6, 7}));
}

TEST_F(ArrayElements, OperationsEntryDestroysTheElements) {
    std::optional array(arrayOf<EnteredElement>({1, 2, 3}));
    array->clear();
    EXPECT_EQ(takeEvents(), Events{"Destroy 3"});
    array->append(EnteredElement(1));
    takeEvents();
    array.reset();
    EXPECT_EQ(takeEvents(), (Events{"Destroy 1", "deallocate 4"}));
}

}  // namespace
