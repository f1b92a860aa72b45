// What a holder does with each type that it can hold here: a record, or a shared array of records.
#include "tests/support/AllocationCount.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/RunTogether.h"
#include "tests/types/SharedValues.h"

#include <Pelmor/AnyValue.h>

#include <array>
#include <atomic>
#include <cstring>
#include <new>
#include <optional>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using namespace TypesTests;
using Pelmor::AnyValue;
using Words = std::array<const void*, 4>;

Words wordsOf(const AnyValue& holder) {
    Words words;
    std::memcpy(words.data(), &holder.words(), sizeof words);
    return words;
}

// How many of `Types` a holder gives.
template <typename... Types>
std::size_t typesGiven(const AnyValue& holder, testing::Types<Types...>) {
    return (std::size_t{holder.getIf<Types>() != nullptr} + ...);
}

template <typename Held>
class ValueInHolder : public testing::Test {
protected:
    using Value = SharedValue<Held>;

    // What fits in the three words of the holder's storage lies there, other values on the heap.
    static constexpr bool kLiesInHolder = sizeof(Held) <= 3 * sizeof(void*);

    static AnyValue holding(const Value& shared) { return AnyValue::holding(shared.value); }

    // So many copies, the value itself among them.
    void expectCopies(std::uint64_t copies) const { expectCopies(shared, copies); }
    static void expectCopies(const Value& of, std::uint64_t copies) {
        EXPECT_EQ(of.counts(), Value::countsOf(copies));
        EXPECT_EQ(of.releases(), 0u);
    }
    // Nobody shares them any more, and each was released once.
    static void expectReleased(const Value& of) {
        EXPECT_EQ(of.countsOfPointees(), UseCounts(Value::pointees(), 0));
        EXPECT_EQ(of.releases(), Value::pointees());
    }

    Value shared;
    Value former;
};
TYPED_TEST_SUITE(ValueInHolder, HeldTypes, NameOfType);

TYPED_TEST(ValueInHolder, LiesInTheHolderIfItFitsAndElseOnTheHeap) {
    const AnyValue holder = this->holding(this->shared);
    const void* value = holder.getIf<TypeParam>();
    const Words words = wordsOf(holder);
    std::size_t used = 1;
    if constexpr (TestFixture::kLiesInHolder) {
        EXPECT_EQ(value, &holder);
        used = sizeof(TypeParam) / sizeof(void*);
    } else {
        EXPECT_EQ(words[0], value);
    }
    for (std::size_t i = used; i < 3; ++i) EXPECT_EQ(words[i], nullptr) << i;
}

TYPED_TEST(ValueInHolder, IsGivenForItsOwnTypeAlone) {
    const AnyValue holder = this->holding(this->shared);
    EXPECT_NE(holder.getIf<TypeParam>(), nullptr);
    EXPECT_EQ(typesGiven(holder, HeldTypes()), 1u);
    EXPECT_EQ(holder.getIf<Pelmor::String>(), nullptr);
    EXPECT_EQ(&holder.type(), &Pelmor::Internal::HeldIdentity<TypeParam>::s_record);
}

TYPED_TEST(ValueInHolder, IsSharedByEachCopyOfItsHolder) {
    {
        const AllocationCount count;
        const AnyValue holder = this->holding(this->shared);
        const AnyValue copy(holder);
        AnyValue assigned;
        assigned = copy;
        EXPECT_EQ(count.allocations(), TestFixture::kLiesInHolder ? 0u : 3u);
        EXPECT_EQ(count.deallocations(), 0u);
        this->expectCopies(4);
        EXPECT_EQ(leavesOf(*assigned.getIf<TypeParam>()), leavesOf(this->shared.value));
    }
    this->expectCopies(1);
}

TYPED_TEST(ValueInHolder, IsUnharmedWhereThereIsNoMemoryForACopy) {
    constexpr bool kNeedsNone = TestFixture::kLiesInHolder;
    const AnyValue source = this->holding(this->shared);
    AnyValue destination = this->holding(this->former);
    const auto withoutMemory = [](const auto& copy) {
        const AllocationCount count;
        const AllocationFailure failure;
        if constexpr (kNeedsNone) {
            EXPECT_NO_THROW(copy());
        } else {
            EXPECT_THROW(copy(), std::bad_alloc);
        }
        EXPECT_EQ(count.outstanding(), 0);
    };
    withoutMemory([&] { AnyValue copy(source); });
    withoutMemory([&] { this->holding(this->shared); });
    withoutMemory([&] { destination = source; });
    EXPECT_NE(destination.getIf<TypeParam>(), nullptr);
    this->expectCopies(kNeedsNone ? 3 : 2);
    this->expectCopies(this->former, kNeedsNone ? 1 : 2);
}

TYPED_TEST(ValueInHolder, MovesWithItsHolderWithoutMemoryOrAChangeOfCounts) {
    AnyValue first = this->holding(this->shared);
    const Words before = wordsOf(first);
    const AllocationCount count;
    AnyValue second(std::move(first));
    EXPECT_EQ(wordsOf(second), before);
    EXPECT_EQ(wordsOf(first), Words());
    first = std::move(second);
    EXPECT_EQ(wordsOf(first), before);
    second.moveAssign(first);
    EXPECT_EQ(wordsOf(second), before);
    EXPECT_EQ(wordsOf(first), Words());
    EXPECT_EQ(count.allocations() + count.deallocations(), 0u);
    this->expectCopies(2);
}

TYPED_TEST(ValueInHolder, IsReleasedOnceWhereItsHolderGetsAnother) {
    using Replace = void (*)(AnyValue & holder, AnyValue & other);
    const Replace ways[] = {[](AnyValue& holder, AnyValue& other) { holder = other; },
                            [](AnyValue& holder, AnyValue& other) { holder = std::move(other); },
                            [](AnyValue& holder, AnyValue& other) { holder.moveAssign(other); }};
    for (const Replace replace : ways) {
        typename TestFixture::Value replaced;
        AnyValue holder = this->holding(replaced);
        AnyValue other = this->holding(this->shared);
        replaced.drop();
        replace(holder, other);
        this->expectReleased(replaced);
        other.reset();
        this->expectCopies(2);
        EXPECT_NE(holder.getIf<TypeParam>(), nullptr);
    }
}

TYPED_TEST(ValueInHolder, IsReleasedOnceWithItsLastHolder) {
    std::optional<AnyValue> first(this->holding(this->shared));
    std::optional<AnyValue> last(*first);
    this->shared.drop();
    first.reset();
    EXPECT_EQ(this->shared.countsOfPointees(), UseCounts(TestFixture::Value::pointees(), 1));
    EXPECT_EQ(this->shared.releases(), 0u);
    last.reset();
    this->expectReleased(this->shared);
}

constexpr std::size_t kThreads = 4;

template <typename Held>
class ValueInHolderOnThreads : public ValueInHolder<Held> {};
using TypesThatShare = Joined<RecordTypesWithArrays, TypesOfRecords::Arrays>::Type;
TYPED_TEST_SUITE(ValueInHolderOnThreads, TypesThatShare, NameOfType);

// First copies alone and then drops alone, so that lost counts cannot make up for each other, and
// so many that the threads are sure to meet.
TYPED_TEST(ValueInHolderOnThreads, IsCountedByEveryCopyOfItsHolder) {
    constexpr std::size_t kCopies = 50'000;
    const AnyValue holder = this->holding(this->shared);
    std::vector<std::vector<AnyValue>> copies(kThreads);
    runTogether(kThreads, [&](std::size_t i) { copies[i].assign(kCopies, holder); });
    this->expectCopies(2 + kThreads * kCopies);
    runTogether(kThreads, [&](std::size_t i) { copies[i].clear(); });
    this->expectCopies(2);
}

// The threads race for the last use of each pointee.
TYPED_TEST(ValueInHolderOnThreads, IsReleasedOnceByTheLastOfSeveralHolders) {
    for (int round = 0; round < 20; ++round) {
        typename TestFixture::Value value;
        std::vector<AnyValue> holders(kThreads, this->holding(value));
        value.drop();
        runTogether(kThreads, [&](std::size_t i) { holders[i].reset(); });
        this->expectReleased(value);
    }
}

}  // namespace
