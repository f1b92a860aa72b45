// What arrays do to their elements and to their storage, step by step.
#include "tests/graph/ElementEvents.h"
#include "tests/support/AllocationCount.h"

#include <Pelmor/Array.h>

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
std::vector<int> numbersOf(const Array<Element>& array) {
    std::vector<int> numbers;
    for (const Element& element : array) numbers.push_back(element.number());
    return numbers;
}

class ArrayElements : public testing::Test {
protected:
    void SetUp() override {
        PlainElement::s_refused = -1;
        PlainElement::s_nextDefault = 0;
        takeEvents();
    }
    void TearDown() override { EXPECT_EQ(PlainElement::s_alive, 0); }
};

TEST_F(ArrayElements, AreCopiedThenDestroyedInOrderBeforeTheOldStorageGoesAndTheNewOneComes) {
    Array<PlainElement> array;
    array.append(PlainElement(1));
    array.append(PlainElement(2));
    takeEvents();
    array.append(PlainElement(3));
    EXPECT_EQ(takeEvents(), (Events{"allocate 4", "copy 1", "copy 2", "destroy 1", "destroy 2",
                                    "deallocate 2", "move 3"}));
}

TEST_F(ArrayElements, StayWhereTheyAreWhileThereIsRoom) {
    Array<PlainElement> array;
    for (int i = 1; i <= 3; ++i) array.append(PlainElement(i));
    takeEvents();
    array.append(PlainElement(4));
    EXPECT_EQ(takeEvents(), Events{"move 4"});
}

TEST_F(ArrayElements, GoInOrderAndTheStorageAfterThemWithItsCapacity) {
    {
        Array<PlainElement> array;
        for (int i = 1; i <= 3; ++i) array.append(PlainElement(i));
        takeEvents();
    }
    EXPECT_EQ(takeEvents(), (Events{"destroy 1", "destroy 2", "destroy 3", "deallocate 4"}));
}

TEST_F(ArrayElements, GoInOrderWhenTheArrayIsClearedAndTheStorageLater) {
    {
        Array<PlainElement> array;
        for (int i = 1; i <= 3; ++i) array.append(PlainElement(i));
        takeEvents();
        array.clear();
        EXPECT_EQ(takeEvents(), (Events{"destroy 1", "destroy 2", "destroy 3"}));
    }
    EXPECT_EQ(takeEvents(), Events{"deallocate 4"});
}

TEST_F(ArrayElements, OfAnArrayWithoutStorageCauseNothing) {
    {
        Array<PlainElement> array;
        array.clear();
    }
    EXPECT_EQ(takeEvents(), Events{});
}

TEST_F(ArrayElements, AreMadeInOrderInStorageOfTheirNumber) {
    const Array<PlainElement> array(3);
    EXPECT_EQ(takeEvents(), (Events{"allocate 3", "default 0", "default 1", "default 2"}));
}

TEST_F(ArrayElements, AreCopiedWithTheArrayAndNotMovedWithIt) {
    Array<PlainElement> array(2);
    takeEvents();
    const Array<PlainElement> copy(array);
    EXPECT_EQ(takeEvents(), (Events{"allocate 2", "copy 0", "copy 1"}));
    const Array<PlainElement> moved(std::move(array));
    EXPECT_EQ(takeEvents(), Events{});
}

TEST_F(ArrayElements, AreAsTheyWereWhenACopyThrowsAsTheArrayGrows) {
    const TestSupport::AllocationCount count;
    {
        Array<PlainElement> array;
        for (int i = 1; i <= 4; ++i) array.append(PlainElement(i));
        const PlainElement* storage = array.data();
        PlainElement::s_refused = 3;
        EXPECT_THROW(array.append(PlainElement(5)), CopyRefused);
        EXPECT_EQ(array.data(), storage);
        EXPECT_EQ(array.capacity(), 4u);
        EXPECT_EQ(numbersOf(array), (std::vector<int>{1, 2, 3, 4}));
    }
    EXPECT_EQ(count.outstanding(), 0);
}

TEST_F(ArrayElements, AreAsTheyWereWhenTheNewElementCannotBeCopied) {
    Array<PlainElement> array;
    array.append(PlainElement(1));
    const PlainElement refused(2);
    PlainElement::s_refused = 2;
    EXPECT_THROW(array.append(refused), CopyRefused);
    EXPECT_EQ(numbersOf(array), std::vector<int>{1});
    EXPECT_EQ(array.capacity(), 1u);
}

TEST_F(ArrayElements, AllGoWhenOneCannotBeCopiedWithTheArray) {
    Array<PlainElement> array(3);
    takeEvents();
    PlainElement::s_refused = 2;
    EXPECT_THROW(Array<PlainElement>{array}, CopyRefused);
    EXPECT_EQ(takeEvents(),
              (Events{"allocate 3", "copy 0", "copy 1", "destroy 0", "destroy 1", "deallocate 3"}));
}

TEST_F(ArrayElements, AreAsTheyWereWhenAnAssignmentThrows) {
    Array<PlainElement> array(2);
    const Array<PlainElement> other(2);
    PlainElement::s_refused = 3;
    EXPECT_THROW(array = other, CopyRefused);
    EXPECT_EQ(numbersOf(array), (std::vector<int>{0, 1}));
}

TEST_F(ArrayElements, AllGoWhenOneOfThemCannotBeMade) {
    PlainElement::s_refused = 2;
    EXPECT_THROW(Array<PlainElement>(4), CopyRefused);
    EXPECT_EQ(takeEvents(), (Events{"allocate 4", "default 0", "default 1", "destroy 0",
                                    "destroy 1", "deallocate 4"}));
}

TEST_F(ArrayElements, WithAnEntryAreMadeByIt) {
    const Array<EnteredElement> array(3);
    EXPECT_EQ(takeEvents(), (Events{"allocate 3", "DefaultConstruct 3"}));
    EXPECT_EQ(numbersOf(array), (std::vector<int>{0, 0, 0}));
}

TEST_F(ArrayElements, WithAnEntryAreAppendedByIt) {
    Array<EnteredElement> array;
    array.append(EnteredElement(1));
    EXPECT_EQ(takeEvents(), (Events{"allocate 1", "MoveConstruct 1"}));
    EXPECT_EQ(numbersOf(array), std::vector<int>{1});
}

TEST_F(ArrayElements, WithAnEntryGrowByIt) {
    Array<EnteredElement> array;
    for (int i = 1; i <= 2; ++i) array.append(EnteredElement(i));
    takeEvents();
    array.append(EnteredElement(3));
    EXPECT_EQ(takeEvents(), (Events{"allocate 4", "CopyConstruct 2", "Destroy 2", "deallocate 2",
                                    "MoveConstruct 1"}));
    EXPECT_EQ(numbersOf(array), (std::vector<int>{1, 2, 3}));
}

TEST_F(ArrayElements, WithAnEntryAreCopiedByIt) {
    Array<EnteredElement> array(2);
    array.append(EnteredElement(7));
    takeEvents();
    const Array<EnteredElement> copy(array);
    EXPECT_EQ(takeEvents(), (Events{"allocate 3", "CopyConstruct 3"}));
    EXPECT_EQ(numbersOf(copy), (std::vector<int>{0, 0, 7}));
}

TEST_F(ArrayElements, WithAnEntryAreDestroyedByIt) {
    std::optional<Array<EnteredElement>> array(3);
    takeEvents();
    array->clear();
    EXPECT_EQ(takeEvents(), Events{"Destroy 3"});
    array->append(EnteredElement(1));
    takeEvents();
    array.reset();
    EXPECT_EQ(takeEvents(), (Events{"Destroy 1", "deallocate 3"}));
}

TEST_F(ArrayElements, CarryTheirEntryInTheDescription) {
    const Array<EnteredElement> array;
    EXPECT_EQ(array.elementRep().operations, &EnteredElement::operations);
}

}  // namespace
