// Records as values: what a new one is, what copies, moves and assignments share, in which order
// members are released, and when a record takes memory.
#include "tests/support/AllocationCount.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/RecordLeaves.h"
#include "tests/types/SharedMembers.h"

#include <Pelmor/DefaultClass.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <new>
#include <numeric>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using namespace TypesTests;

const Object& defaultObject() { return Pelmor::Internal::getDefaultClass<Tavrik::Object>(); }

// Expects what a new record has: zeros, empty texts, empty arrays that nothing shares, and the
// default object. Adds the arrays to `arrays`.
template <typename T>
void expectNew(const T& value, std::set<const void*>& arrays) {
    if constexpr (kIsObject<T>) {
        EXPECT_EQ(value.get(), defaultObject().get());
    } else if constexpr (kIsArray<T>) {
        ASSERT_TRUE(value);
        EXPECT_EQ(value.useCount(), 1u);
        EXPECT_EQ(value->data(), nullptr);
        EXPECT_EQ(value->size() + value->capacity(), 0u);
        const auto expected = Pelmor::Internal::elementRepOf<ElementOf<T>>();
        EXPECT_EQ(std::memcmp(&value->elementRep(), &expected, sizeof expected), 0);
        arrays.insert(value.get());
    } else if constexpr (std::is_same_v<T, Pelmor::String>) {
        EXPECT_STREQ(value.c_str(), "");
    } else if constexpr (kIsPlain<T>) {
        const unsigned char zeros[sizeof value] = {};
        EXPECT_EQ(std::memcmp(&value, zeros, sizeof value), 0);
    } else {
        eachMemberAndObject(value, [&](const auto& member) { expectNew(member, arrays); });
    }
}

template <typename Record>
class Records : public testing::Test {
protected:
    // Whoever first asks for the default object makes it, for good: that is no record's memory.
    Records() { defaultObject(); }
};
TYPED_TEST_SUITE(Records, RecordTypes, NameOfType);

TYPED_TEST(Records, NewOnesHaveZerosEmptyTextsEmptyArraysOfTheirOwnAndDefaultObjects) {
    const std::uint64_t uses = defaultObject().useCount();
    // Members that are not set show what the storage was full of.
    alignas(TypeParam) unsigned char storage[sizeof(TypeParam)];
    std::memset(storage, 0xff, sizeof storage);
    auto* inOldStorage = new (storage) TypeParam;
    {
        const TypeParam other{};
        std::set<const void*> arrays;
        expectNew(*inOldStorage, arrays);
        expectNew(other, arrays);
        EXPECT_EQ(arrays.size(), 2 * arraysOf<TypeParam>());
        EXPECT_EQ(defaultObject().useCount(), uses + 2 * objectsOf<TypeParam>());
    }
    inOldStorage->~TypeParam();
    EXPECT_EQ(defaultObject().useCount(), uses);
}

TYPED_TEST(Records, NewArraysHaveNewOnesForElements) {
    std::set<const void*> arrays;
    const Pelmor::Array<TypeParam> records(3);
    for (const TypeParam& record : records) expectNew(record, arrays);
    EXPECT_EQ(arrays.size(), 3 * arraysOf<TypeParam>());
}

TYPED_TEST(Records, CopiesAndMovesHaveTheValuesAndKeepThemWhereTheSourceChanges) {
    auto record = numbered<TypeParam>();
    const Leaves values = leavesOf(record);
    const TypeParam copy(record);
    TypeParam assigned{}, source(record), sourceOfAssignment(record), moveAssigned{};
    assigned = record;
    const TypeParam moved(std::move(source));
    moveAssigned = std::move(sourceOfAssignment);
    record = numbered<TypeParam>(Numbers(1000));
    EXPECT_EQ(leavesOf(copy), values);
    EXPECT_EQ(leavesOf(assigned), values);
    EXPECT_EQ(leavesOf(moved), values);
    EXPECT_EQ(leavesOf(moveAssigned), values);
}

TYPED_TEST(Records, NewOnesTakeOneBlockForEachArrayAndGiveItBack) {
    const AllocationCount count;
    {
        [[maybe_unused]] const TypeParam record{};
        EXPECT_EQ(count.allocations(), arraysOf<TypeParam>());
    }
    EXPECT_EQ(count.allocations(), arraysOf<TypeParam>());
    EXPECT_EQ(count.outstanding(), 0);
}

TYPED_TEST(Records, NewOnesGiveEverythingBackWhereMemoryRunsOut) {
    const std::uint64_t uses = defaultObject().useCount();
    const AllocationCount count;
    for (std::uint64_t nth = 1; nth <= arraysOf<TypeParam>(); ++nth) {
        const AllocationFailure failure(nth);
        EXPECT_THROW(static_cast<void>(TypeParam{}), std::bad_alloc) << nth;
        EXPECT_EQ(count.outstanding(), 0) << nth;
        EXPECT_EQ(defaultObject().useCount(), uses) << nth;
    }
}

TYPED_TEST(Records, CopiesMovesAndAssignmentsTakeNoMemory) {
    auto record = numbered<TypeParam>();
    TypeParam other{};
    const AllocationCount count;
    TypeParam copy(record);
    TypeParam moved(std::move(copy));
    other = moved;
    copy = std::move(moved);
    EXPECT_EQ(count.allocations(), 0u);
}

// The first `places` places have one count, the others another.
template <typename Record>
UseCounts firstPlaces(std::size_t places, std::uint64_t first, std::uint64_t others) {
    UseCounts counts = everyCount<Record>(others);
    std::fill_n(counts.begin(), places, first);
    return counts;
}

template <typename Record>
class SharingRecords : public testing::Test {
protected:
    SharingRecords() {
        former.putInto(*destination);
        next.putInto(*source);
    }

    void expectNothingReleased() const {
        EXPECT_EQ(former.releases(), Releases());
        EXPECT_EQ(next.releases(), Releases());
    }

    // Expects an assignment from `source` to replace member by member, in order, and each to point
    // to its new pointee when the former is released. Those of the source are then `sourceCount`
    // where they have been assigned.
    template <typename Assign>
    void expectReplacedInOrder(std::uint64_t sourceCount, const Assign& assign) {
        const Pointees before = pointees(*source);
        std::size_t released = 0;
        former.onRelease([&](std::size_t place) {
            EXPECT_EQ(place, released++);
            EXPECT_EQ(former.counts(), firstPlaces<Record>(released, 0, 1));
            EXPECT_EQ(next.counts(), firstPlaces<Record>(released, sourceCount, 1));
            EXPECT_EQ(pointees(*destination)[place], before[place]);
            EXPECT_EQ(pointees(*source)[place], sourceCount > 1 ? before[place] : nullptr);
        });
        assign();
        EXPECT_EQ(released, sharedMembers<Record>());
        EXPECT_EQ(pointees(*destination), before);
        EXPECT_EQ(next.counts(), everyCount<Record>(sourceCount));
        EXPECT_EQ(next.releases(), Releases());
    }

    WatchedPointees former, next;
    std::optional<Record> destination{std::in_place}, source{std::in_place};
};
TYPED_TEST_SUITE(SharingRecords, RecordTypesWithArrays, NameOfType);

TYPED_TEST(SharingRecords, CopySharesEverythingUntilItGoes) {
    {
        const TypeParam copy(*this->source);
        EXPECT_EQ(pointees(copy), pointees(*this->source));
        EXPECT_EQ(this->next.counts(), everyCount<TypeParam>(2));
    }
    EXPECT_EQ(this->next.counts(), everyCount<TypeParam>(1));
    this->expectNothingReleased();
}

TYPED_TEST(SharingRecords, MoveTakesEverythingOverAndLeavesNullsThatReleaseNothing) {
    const Pointees before = pointees(*this->source);
    const TypeParam moved(std::move(*this->source));
    EXPECT_EQ(pointees(moved), before);
    EXPECT_EQ(pointees(*this->source), allNull<TypeParam>());
    EXPECT_EQ(useCounts(*this->source), everyCount<TypeParam>(0));
    this->source.reset();
    EXPECT_EQ(this->next.counts(), everyCount<TypeParam>(1));
    this->expectNothingReleased();
}

TYPED_TEST(SharingRecords, CopyAssignmentSharesEachMemberBeforeItReleasesTheFormer) {
    this->expectReplacedInOrder(2, [this] { *this->destination = *this->source; });
}

TYPED_TEST(SharingRecords, MoveAssignmentTakesEachMemberOverBeforeItReleasesTheFormer) {
    this->expectReplacedInOrder(1, [this] { *this->destination = std::move(*this->source); });
    EXPECT_EQ(pointees(*this->source), allNull<TypeParam>());
    EXPECT_EQ(useCounts(*this->source), everyCount<TypeParam>(0));
}

TYPED_TEST(SharingRecords, CopyAssignmentOfTheSameObjectsChangesNoCount) {
    TypeParam& record = *this->source;
    const Pointees before = pointees(record);
    const TypeParam& same = record;
    record = same;
    EXPECT_EQ(this->next.counts(), everyCount<TypeParam>(1));
    {
        const TypeParam copy(record);
        record = copy;
        EXPECT_EQ(this->next.counts(), everyCount<TypeParam>(2));
    }
    EXPECT_EQ(pointees(record), before);
    this->expectNothingReleased();
}

TYPED_TEST(SharingRecords, CopyAssignmentOfTheSameObjectsInOtherControlBlocksDoesNothing) {
    WatchedPointees otherBlocks;
    {
        TypeParam other(*this->source);
        otherBlocks.putOtherBlocksInto(other);
        *this->source = other;
        EXPECT_EQ(this->next.counts(), everyCount<TypeParam>(1));
        EXPECT_EQ(otherBlocks.counts(), everyCount<TypeParam>(1));
        this->expectNothingReleased();
    }
    EXPECT_EQ(otherBlocks.counts(), everyCount<TypeParam>(0));
    EXPECT_EQ(this->next.counts(), everyCount<TypeParam>(1));
}

TYPED_TEST(SharingRecords, MoveAssignmentToItselfChangesNothing) {
    TypeParam& record = *this->source;
    TypeParam& same = record;
    const Pointees before = pointees(record);
    record = std::move(same);
    EXPECT_EQ(pointees(record), before);
    EXPECT_EQ(this->next.counts(), everyCount<TypeParam>(1));
    this->expectNothingReleased();
}

TYPED_TEST(SharingRecords, MoveAssignmentOfTheSameObjectsDropsOneUseOfEach) {
    TypeParam& record = *this->source;
    TypeParam copy(record);
    const Pointees before = pointees(record);
    record = std::move(copy);
    EXPECT_EQ(pointees(record), before);
    EXPECT_EQ(pointees(copy), allNull<TypeParam>());
    EXPECT_EQ(this->next.counts(), everyCount<TypeParam>(1));
    this->expectNothingReleased();
}

TYPED_TEST(SharingRecords, EndReleasesTheMembersFromTheLastToTheFirst) {
    this->source.reset();
    Releases lastToFirst(sharedMembers<TypeParam>());
    std::iota(lastToFirst.rbegin(), lastToFirst.rend(), 0);
    EXPECT_EQ(this->next.releases(), lastToFirst);
    EXPECT_EQ(this->next.counts(), everyCount<TypeParam>(0));
}

}  // namespace
