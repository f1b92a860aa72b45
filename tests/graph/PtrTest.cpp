#include "tests/support/AllocationCount.h"
#include "tests/support/RunTogether.h"

#include <Pelmor/Ptr.h>

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Pelmor::ControlBlock;
using Pelmor::ControlBlockOperations;
using Pelmor::makePtr;
using Pelmor::Ptr;
using TestSupport::AllocationCount;
using TestSupport::runTogether;

// A control block that notes which of its operations are called, instead of freeing anything.
struct WatchedBlock : ControlBlock {
    explicit WatchedBlock(std::uint64_t uses = 1) : ControlBlock{&s_operations, {uses}} {}

    static WatchedBlock& of(ControlBlock* block) { return *static_cast<WatchedBlock*>(block); }
    static const ControlBlockOperations s_operations;

    int slot0Calls = 0;
    int slot1Calls = 0;
    std::function<void()> onSlot1;
    int pointee = 7;
};

const ControlBlockOperations WatchedBlock::s_operations = {
    [](ControlBlock* block) noexcept { ++of(block).slot0Calls; },
    [](ControlBlock* block) noexcept {
        ++of(block).slot1Calls;
        if (of(block).onSlot1) of(block).onSlot1();
    }};

Ptr<int> pointerTo(WatchedBlock& block) { return {&block.pointee, &block}; }

TEST(Ptr, DefaultPointerIsNull) {
    for (const Ptr<int>& pointer : {Ptr<int>(), Ptr<int>(nullptr)}) {
        EXPECT_EQ(pointer.get(), nullptr);
        EXPECT_FALSE(pointer);
        EXPECT_EQ(pointer.useCount(), 0u);
        EXPECT_TRUE(pointer == nullptr);
    }
}

TEST(Ptr, PointerIsTwoWordsThePointeeAndItsControlBlock) {
    WatchedBlock block;
    const Ptr<int> pointer = pointerTo(block);
    const void* const* words = reinterpret_cast<const void* const*>(&pointer);
    EXPECT_EQ(sizeof pointer, 2 * sizeof(void*));
    EXPECT_EQ(words[0], &block.pointee);
    EXPECT_EQ(words[1], static_cast<ControlBlock*>(&block));
}

TEST(Ptr, NewPointerTakesOverOneUseOfItsControlBlock) {
    WatchedBlock block(3);
    {
        const Ptr<int> pointer = pointerTo(block);
        EXPECT_EQ(pointer.useCount(), 3u);
    }
    EXPECT_EQ(block.useCount, 2u);
    EXPECT_EQ(block.slot1Calls, 0);
}

TEST(Ptr, EachCopyIsCountedUntilItIsDestroyed) {
    WatchedBlock block;
    const Ptr<int> pointer = pointerTo(block);
    {
        const Ptr<int> copy(pointer);
        EXPECT_EQ(block.useCount, 2u);
        EXPECT_EQ(copy.get(), pointer.get());
        const Ptr<int> copyOfCopy(copy);
        EXPECT_EQ(block.useCount, 3u);
    }
    EXPECT_EQ(block.useCount, 1u);
    EXPECT_EQ(block.slot1Calls, 0);
}

TEST(Ptr, LastPointerCallsSlotOneAloneAndOnce) {
    WatchedBlock block;
    {
        Ptr<int> pointer = pointerTo(block);
        const Ptr<int> copy(pointer);
        pointer = nullptr;
        EXPECT_FALSE(pointer);
        EXPECT_EQ(block.slot1Calls, 0);
    }
    EXPECT_EQ(block.slot1Calls, 1);
    EXPECT_EQ(block.slot0Calls, 0);
    EXPECT_EQ(block.useCount, 0u);
}

TEST(Ptr, MoveConstructionTakesOverTheUseAndLeavesNull) {
    WatchedBlock block;
    Ptr<int> source = pointerTo(block);
    const Ptr<int> destination(std::move(source));
    EXPECT_EQ(block.useCount, 1u);
    EXPECT_EQ(destination.get(), &block.pointee);
    EXPECT_EQ(source.get(), nullptr);
    EXPECT_EQ(source.useCount(), 0u);
}

// An assignment of `next` to a pointer to `former`, and what it looked like when `former` went.
struct WatchedAssignment {
    WatchedBlock former, next;
    Ptr<int> destination = pointerTo(former);
    Ptr<int> source = pointerTo(next);
    const int* destinationAtRelease = nullptr;
    const int* sourceAtRelease = nullptr;
    std::uint64_t usesOfNextAtRelease = 0;

    WatchedAssignment() {
        former.onSlot1 = [this] {
            destinationAtRelease = destination.get();
            sourceAtRelease = source.get();
            usesOfNextAtRelease = next.useCount;
        };
    }
};

TEST(Ptr, CopyAssignmentSharesTheNewPointeeBeforeItReleasesTheOld) {
    WatchedAssignment watched;
    watched.destination = std::as_const(watched.source);
    EXPECT_EQ(watched.former.slot1Calls, 1);
    EXPECT_EQ(watched.destinationAtRelease, &watched.next.pointee);
    EXPECT_EQ(watched.usesOfNextAtRelease, 2u);
    EXPECT_EQ(watched.next.useCount, 2u);
}

TEST(Ptr, MoveAssignmentTakesTheNewPointeeBeforeItReleasesTheOld) {
    WatchedAssignment watched;
    watched.sourceAtRelease = &watched.former.pointee;
    watched.destination = std::move(watched.source);
    EXPECT_EQ(watched.former.slot1Calls, 1);
    EXPECT_EQ(watched.destinationAtRelease, &watched.next.pointee);
    EXPECT_EQ(watched.sourceAtRelease, nullptr);
    EXPECT_EQ(watched.usesOfNextAtRelease, 1u);
    EXPECT_EQ(watched.next.useCount, 1u);
    EXPECT_EQ(watched.source.useCount(), 0u);
}

TEST(Ptr, AssignmentToItselfChangesNothing) {
    WatchedBlock block;
    Ptr<int> pointer = pointerTo(block);
    Ptr<int>& same = pointer;
    pointer = same;
    pointer = std::move(same);
    EXPECT_EQ(pointer.get(), &block.pointee);
    EXPECT_EQ(block.useCount, 1u);
    EXPECT_EQ(block.slot1Calls, 0);
}

TEST(Ptr, CopyAssignmentOfASharingPointerKeepsTheCount) {
    WatchedBlock block;
    Ptr<int> pointer = pointerTo(block);
    const Ptr<int> copy(pointer);
    pointer = copy;
    EXPECT_EQ(block.useCount, 2u);
    EXPECT_EQ(pointer.get(), &block.pointee);
}

TEST(Ptr, MoveAssignmentOfASharingPointerDropsOneUseAndLeavesTheSourceNull) {
    WatchedBlock block;
    Ptr<int> pointer = pointerTo(block);
    Ptr<int> copy(pointer);
    pointer = std::move(copy);
    EXPECT_EQ(block.useCount, 1u);
    EXPECT_EQ(block.slot1Calls, 0);
    EXPECT_EQ(pointer.get(), &block.pointee);
    EXPECT_EQ(copy.get(), nullptr);
    EXPECT_EQ(copy.useCount(), 0u);
}

TEST(Ptr, CopyAssignmentBetweenTwoControlBlocksOfOneObjectDoesNothing) {
    WatchedBlock own(5), other(7);
    Ptr<int> pointer = pointerTo(own);
    const Ptr<int> source(&own.pointee, &other);
    pointer = source;
    EXPECT_EQ(own.useCount, 5u);
    EXPECT_EQ(other.useCount, 7u);
    EXPECT_EQ(pointer.useCount(), 5u) << "it keeps its own control block";
}

TEST(Ptr, AssignmentFromAPointerInsideThePointeeIsSafe) {
    struct Link {
        int number;
        Ptr<Link> next;
    };
    Ptr<Link> head = makePtr<Link>(Link{1, makePtr<Link>(Link{2, makePtr<Link>(Link{3, {}})})});
    head = head->next;
    EXPECT_EQ(head->number, 2);
    head = std::move(head->next);
    EXPECT_EQ(head->number, 3);
    EXPECT_EQ(head.useCount(), 1u);
}

TEST(Ptr, PointersCompareByPointee) {
    WatchedBlock block, other;
    const Ptr<int> pointer = pointerTo(block);
    const Ptr<int> copy(pointer);
    const Ptr<int> elsewhere = pointerTo(other);
    EXPECT_TRUE(pointer == copy);
    EXPECT_FALSE(pointer != copy);
    EXPECT_TRUE(pointer != elsewhere);
    EXPECT_TRUE(pointer != nullptr);
}

struct FirstBase {
    virtual ~FirstBase() = default;
    int fromFirst = 1;
};
struct SecondBase {
    virtual ~SecondBase() = default;
    int fromSecond = 2;
};
struct BothBases : FirstBase, SecondBase {
    explicit BothBases(int& destructions) : m_destructions(destructions) {}
    ~BothBases() override { ++m_destructions; }
    int& m_destructions;
};

template <typename From, typename To>
constexpr bool kConverts =
    std::is_convertible_v<const Ptr<From>&, Ptr<To>>&& std::is_convertible_v<Ptr<From>, Ptr<To>>;
template <typename From, typename To>
constexpr bool kConstructs = std::is_constructible_v<Ptr<To>, const Ptr<From>&> ||
                             std::is_constructible_v<Ptr<To>, Ptr<From>>;

// Exactly where plain pointers do.
static_assert(kConverts<BothBases, FirstBase> && kConverts<BothBases, SecondBase>);
static_assert(kConverts<int, const int> && kConverts<BothBases, const SecondBase>);
static_assert(!kConstructs<FirstBase, BothBases> && !kConstructs<FirstBase, SecondBase>);
static_assert(!kConstructs<const int, int> && !kConstructs<int, double>);

TEST(Ptr, CopyToABaseSharesTheCount) {
    int destructions = 0;
    {
        const Ptr<BothBases> whole = makePtr<BothBases>(destructions);
        const Ptr<SecondBase> base(whole);
        EXPECT_EQ(base.get(), static_cast<SecondBase*>(whole.get()));
        EXPECT_EQ(base->fromSecond, 2);
        EXPECT_EQ(whole.useCount(), 2u);
    }
    EXPECT_EQ(destructions, 1);
}

TEST(Ptr, MoveToABaseTakesOverTheUseAndLeavesNull) {
    int destructions = 0;
    {
        Ptr<BothBases> whole = makePtr<BothBases>(destructions);
        const Ptr<SecondBase> base(std::move(whole));
        EXPECT_FALSE(whole);
        EXPECT_EQ(whole.useCount(), 0u);
        EXPECT_EQ(base.useCount(), 1u);
        EXPECT_EQ(base->fromSecond, 2);
        EXPECT_EQ(destructions, 0);
    }
    EXPECT_EQ(destructions, 1);
}

TEST(MakePtr, NewPointeeHasOneUseAndTakesOneAllocation) {
    const AllocationCount count;
    {
        const Ptr<std::pair<int, int>> pointer = makePtr<std::pair<int, int>>(3, 4);
        EXPECT_EQ(count.allocations(), 1u);
        EXPECT_EQ(pointer.useCount(), 1u);
        EXPECT_EQ(*pointer, std::make_pair(3, 4));
    }
    EXPECT_EQ(count.outstanding(), 0);
}

TEST(MakePtr, ConstructorThatThrowsLeaksNothing) {
    struct Refusing {
        Refusing() { throw std::runtime_error("refused"); }
    };
    const AllocationCount count;
    EXPECT_THROW(makePtr<Refusing>(), std::runtime_error);
    EXPECT_EQ(count.outstanding(), 0);
}

// First copies alone and then drops alone, so that lost counts cannot make up for each other, and
// so many that the threads are sure to meet.
TEST(PtrThreads, CopiesAndDropsOnManyThreadsAreAllCounted) {
    constexpr std::size_t kThreads = 4, kCopies = 1'000'000;
    WatchedBlock block;
    const Ptr<int> pointer = pointerTo(block);
    std::vector<std::vector<Ptr<int>>> copies(kThreads);
    runTogether(kThreads, [&](std::size_t i) { copies[i].assign(kCopies, pointer); });
    EXPECT_EQ(block.useCount, 1 + kThreads * kCopies);
    block.useCount = 1 + kThreads * kCopies;
    runTogether(kThreads, [&](std::size_t i) { copies[i].clear(); });
    EXPECT_EQ(block.useCount, 1u);
    EXPECT_EQ(block.slot1Calls, 0);
}

// The threads race for the last use.
TEST(PtrThreads, LastDropOfManyThreadsDisposesOnce) {
    constexpr std::size_t kThreads = 4;
    for (int round = 0; round < 100; ++round) {
        WatchedBlock block(kThreads);
        std::vector<Ptr<int>> pointers;
        for (std::size_t i = 0; i < kThreads; ++i) pointers.push_back(pointerTo(block));
        runTogether(kThreads, [&](std::size_t i) { pointers[i] = nullptr; });
        EXPECT_EQ(block.slot1Calls, 1);
        EXPECT_EQ(block.useCount, 0u);
    }
}

}  // namespace
