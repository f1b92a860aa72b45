#include "tests/support/AllocationCount.h"

#include <Pelmor/Ptr.h>

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <thread>
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

// A control block that tells which of its operations were called, instead of freeing anything.
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

TEST(Ptr, IsNullByDefault) {
    for (const Ptr<int>& pointer : {Ptr<int>(), Ptr<int>(nullptr)}) {
        EXPECT_EQ(pointer.get(), nullptr);
        EXPECT_FALSE(pointer);
        EXPECT_EQ(pointer.useCount(), 0u);
        EXPECT_TRUE(pointer == nullptr);
    }
}

TEST(Ptr, IsTwoWordsThePointeeAndItsControlBlock) {
    WatchedBlock block;
    const Ptr<int> pointer = pointerTo(block);
    const void* const* words = reinterpret_cast<const void* const*>(&pointer);
    EXPECT_EQ(sizeof pointer, 2 * sizeof(void*));
    EXPECT_EQ(words[0], &block.pointee);
    EXPECT_EQ(words[1], static_cast<ControlBlock*>(&block));
}

TEST(Ptr, TakesOverOneUseOfTheBlockThatItIsGiven) {
    WatchedBlock block(3);
    {
        const Ptr<int> pointer = pointerTo(block);
        EXPECT_EQ(pointer.useCount(), 3u);
    }
    EXPECT_EQ(block.useCount, 2u);
    EXPECT_EQ(block.slot1Calls, 0);
}

TEST(Ptr, CountsEveryCopyOnceAndUncountsItWhenItGoes) {
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

TEST(Ptr, CallsSlotOneAloneAndOnceWhenTheLastOneGoes) {
    WatchedBlock block;
    {
        Ptr<int> pointer = pointerTo(block);
        const Ptr<int> copy(pointer);
        pointer = nullptr;
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

TEST(Ptr, CopyAssignmentSharesTheNewPointeeBeforeItReleasesTheOld) {
    WatchedBlock former, next;
    Ptr<int> destination = pointerTo(former);
    const Ptr<int> source = pointerTo(next);
    std::uint64_t usesOfNextAtRelease = 0;
    former.onSlot1 = [&] { usesOfNextAtRelease = next.useCount; };
    destination = source;
    EXPECT_EQ(former.slot1Calls, 1);
    EXPECT_EQ(usesOfNextAtRelease, 2u);
    EXPECT_EQ(next.useCount, 2u);
    EXPECT_EQ(destination.get(), &next.pointee);
}

TEST(Ptr, MoveAssignmentTakesTheNewPointeeBeforeItReleasesTheOld) {
    WatchedBlock former, next;
    Ptr<int> destination = pointerTo(former);
    Ptr<int> source = pointerTo(next);
    const int* destinationAtRelease = nullptr;
    const int* sourceAtRelease = &former.pointee;
    former.onSlot1 = [&] {
        destinationAtRelease = destination.get();
        sourceAtRelease = source.get();
    };
    destination = std::move(source);
    EXPECT_EQ(former.slot1Calls, 1);
    EXPECT_EQ(destinationAtRelease, &next.pointee);
    EXPECT_EQ(sourceAtRelease, nullptr);
    EXPECT_EQ(next.useCount, 1u);
    EXPECT_EQ(source.useCount(), 0u);
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

TEST(Ptr, AssignmentAmongPointersToOnePointeeKeepsItsCount) {
    WatchedBlock block;
    Ptr<int> pointer = pointerTo(block);
    const Ptr<int> copy(pointer);
    pointer = copy;
    EXPECT_EQ(block.useCount, 2u);
    pointer = Ptr<int>(copy);
    EXPECT_EQ(block.useCount, 2u);
}

TEST(Ptr, AssignmentFromWhatThePointeeItselfHoldsIsSafe) {
    struct Link {
        int number;
        Ptr<Link> next;
    };
    Ptr<Link> head = makePtr<Link>(Link{1, makePtr<Link>(Link{2, nullptr})});
    head = head->next;
    EXPECT_EQ(head->number, 2);
    EXPECT_EQ(head.useCount(), 1u);
}

TEST(Ptr, AssigningNullReleases) {
    WatchedBlock block;
    Ptr<int> pointer = pointerTo(block);
    pointer = Ptr<int>();
    EXPECT_EQ(block.slot1Calls, 1);
    EXPECT_FALSE(pointer);
}

TEST(Ptr, ComparesByPointee) {
    WatchedBlock block, other;
    const Ptr<int> pointer = pointerTo(block);
    const Ptr<int> copy(pointer);
    const Ptr<int> elsewhere = pointerTo(other);
    EXPECT_TRUE(pointer == copy);
    EXPECT_FALSE(pointer != copy);
    EXPECT_TRUE(pointer != elsewhere);
    EXPECT_TRUE(pointer != nullptr);
}

struct Base {
    virtual ~Base() = default;
    int fromBase = 1;
};
struct Interface {
    virtual ~Interface() = default;
    int fromInterface = 2;
};
struct Derived : Base, Interface {
    explicit Derived(int& destructions) : m_destructions(destructions) {}
    ~Derived() override { ++m_destructions; }
    int& m_destructions;
};

TEST(Ptr, ConvertsToABaseAndSharesTheCount) {
    int destructions = 0;
    {
        const Ptr<Derived> derived = makePtr<Derived>(destructions);
        const Ptr<Interface> interface(derived);
        EXPECT_EQ(interface.get(), static_cast<Interface*>(derived.get()));
        EXPECT_EQ(interface->fromInterface, 2);
        EXPECT_EQ(derived.useCount(), 2u);
    }
    EXPECT_EQ(destructions, 1);
}

TEST(Ptr, ConvertsToABaseThatOutlivesTheOriginal) {
    int destructions = 0;
    {
        const Ptr<Interface> interface = makePtr<Derived>(destructions);
        EXPECT_EQ(interface.useCount(), 1u);
        EXPECT_EQ(interface->fromInterface, 2);
        EXPECT_EQ(destructions, 0);
    }
    EXPECT_EQ(destructions, 1);
}

TEST(Ptr, MovesToABaseAndLeavesNull) {
    int destructions = 0;
    Ptr<Derived> derived = makePtr<Derived>(destructions);
    const Ptr<Base> base(std::move(derived));
    EXPECT_FALSE(derived);
    EXPECT_EQ(derived.useCount(), 0u);
    EXPECT_EQ(base.useCount(), 1u);
}

TEST(MakePtr, GivesAPointeeWithOneUseInOneAllocation) {
    const AllocationCount count;
    {
        const Ptr<std::pair<int, int>> pointer = makePtr<std::pair<int, int>>(3, 4);
        EXPECT_EQ(count.allocations(), 1u);
        EXPECT_EQ(pointer.useCount(), 1u);
        EXPECT_EQ(*pointer, std::make_pair(3, 4));
    }
    EXPECT_EQ(count.outstanding(), 0);
}

TEST(MakePtr, LeaksNothingWhereTheConstructorThrows) {
    struct Refusing {
        Refusing() { throw std::runtime_error("refused"); }
    };
    const AllocationCount count;
    EXPECT_THROW(makePtr<Refusing>(), std::runtime_error);
    EXPECT_EQ(count.outstanding(), 0);
}

TEST(Ptr, IsCopiedAndDroppedOnManyThreadsAtOnce) {
    WatchedBlock block;
    std::vector<std::thread> threads;
    {
        const Ptr<int> pointer = pointerTo(block);
        for (int i = 0; i < 8; ++i)
            threads.emplace_back([own = pointer] {
                for (int round = 0; round < 2000; ++round) {
                    Ptr<int> copy(own);
                    const Ptr<int> taken(std::move(copy));
                    ASSERT_EQ(*taken, 7);
                }
            });
    }
    for (std::thread& thread : threads) thread.join();
    threads.clear();
    EXPECT_EQ(block.useCount, 0u);
    EXPECT_EQ(block.slot1Calls, 1);
}

}  // namespace
