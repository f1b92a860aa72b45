// How often a holder shares what it holds, for every array and object in a value of each of the
// fourteen types, and when it takes memory.
#include "tests/support/AllocationCount.h"
#include "tests/support/AllocationFailure.h"
#include "tests/types/SharedValues.h"

#include <Pelmor/AnyValue.h>
#include <Pelmor/DefaultClass.h>

#include <new>
#include <optional>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TypesTests;
using Pelmor::AnyValue;
using TestSupport::AllocationCount;
using TestSupport::AllocationFailure;

template <typename Held>
class HolderCounts : public testing::Test {
protected:
    using Value = SharedValue<Held>;

    // A record lies on the heap, a shared array in the holder.
    static constexpr std::uint64_t kAllocationsOfACopy = Value::isArray ? 0 : 1;

    static AnyValue holding(const Value& shared) { return AnyValue::holding(shared.value); }

    // So many copies, the value itself among them.
    void expectCopies(std::uint64_t copies) const { expectCopies(shared, copies); }
    static void expectCopies(const Value& of, std::uint64_t copies) {
        EXPECT_EQ(of.counts(), Value::countsOf(copies));
        EXPECT_EQ(of.releases(), 0u);
    }
    // Nobody shares them any more, and each was released once.
    static void expectReleased(const Value& of) {
        EXPECT_EQ(of.countsOfPointees(), UseCounts(Value::pointees, 0));
        EXPECT_EQ(of.releases(), Value::pointees);
    }

    Value shared;
    Value former;
};
TYPED_TEST_SUITE(HolderCounts, HeldTypes, );

TYPED_TEST(HolderCounts, RiseByOneWithAHolderAndFallWithItsEnd) {
    this->expectCopies(1);
    {
        const AnyValue holder = this->holding(this->shared);
        this->expectCopies(2);
    }
    this->expectCopies(1);
}

TYPED_TEST(HolderCounts, StayWhereAValueMovesIntoAHolder) {
    TypeParam copy = this->shared.value;
    this->expectCopies(2);
    const AnyValue holder = AnyValue::holding(std::move(copy));
    this->expectCopies(2);
}

TYPED_TEST(HolderCounts, RiseByOneWithACopyOfAHolderAndFallWithItsEnd) {
    const AnyValue holder = this->holding(this->shared);
    {
        const AnyValue copy(holder);
        this->expectCopies(3);
    }
    this->expectCopies(2);
    EXPECT_TRUE(holder.hasValue());
}

TYPED_TEST(HolderCounts, StayWhereAHolderMovesAndWhereItEndsAfterwards) {
    std::optional<AnyValue> source(this->holding(this->shared));
    const AnyValue destination(std::move(*source));
    this->expectCopies(2);
    source.reset();
    this->expectCopies(2);
}

TYPED_TEST(HolderCounts, RiseByOneWhereAHolderIsAssignedToAnEmptyOne) {
    const AnyValue source = this->holding(this->shared);
    AnyValue destination;
    destination = source;
    this->expectCopies(3);
    destination.reset();
    this->expectCopies(2);
}

TYPED_TEST(HolderCounts, RiseBeforeThoseOfTheFormerValueFallWhereAHolderIsAssigned) {
    const AnyValue source = this->holding(this->shared);
    AnyValue destination = this->holding(this->former);
    this->former.drop();
    std::vector<UseCounts> countsAtRelease;
    this->former.onRelease([&] { countsAtRelease.push_back(this->shared.counts()); });
    destination = source;
    this->expectReleased(this->former);
    EXPECT_EQ(countsAtRelease, std::vector<UseCounts>(TestFixture::Value::pointees,
                                                      TestFixture::Value::countsOf(3)));
    this->expectCopies(3);
}

TYPED_TEST(HolderCounts, AreAsBeforeWhereAHolderIsAssignedToItself) {
    AnyValue holder = this->holding(this->shared);
    const AnyValue& same = holder;
    holder = same;
    this->expectCopies(2);
    EXPECT_NE(holder.getIf<TypeParam>(), nullptr);
}

TYPED_TEST(HolderCounts, AreAsBeforeWhereAHolderOfTheSameIsAssigned) {
    const AnyValue source = this->holding(this->shared);
    AnyValue destination(source);
    destination = source;
    this->expectCopies(3);
}

TYPED_TEST(HolderCounts, StayWhereAHolderIsMoveAssignedAndThoseOfTheFormerValueFallBefore) {
    AnyValue source = this->holding(this->shared);
    AnyValue destination = this->holding(this->former);
    this->former.drop();
    std::vector<bool> sourceHoldsAtRelease;
    this->former.onRelease([&] { sourceHoldsAtRelease.push_back(source.hasValue()); });
    destination = std::move(source);
    this->expectReleased(this->former);
    EXPECT_EQ(sourceHoldsAtRelease, std::vector<bool>(TestFixture::Value::pointees, true));
    this->expectCopies(2);
    EXPECT_FALSE(source.hasValue());
}

TYPED_TEST(HolderCounts, StayWhereAHolderIsMoveAssignedToItself) {
    AnyValue holder = this->holding(this->shared);
    AnyValue& same = holder;
    holder = std::move(same);
    this->expectCopies(2);
    EXPECT_NE(holder.getIf<TypeParam>(), nullptr);
}

TYPED_TEST(HolderCounts, StayWhereATemporaryIsTakenOver) {
    AnyValue temporary = this->holding(this->shared);
    AnyValue holder = this->holding(this->former);
    this->expectCopies(this->former, 2);
    holder.moveAssign(temporary);
    this->expectCopies(this->former, 1);
    this->expectCopies(2);
}

TYPED_TEST(HolderCounts, FallWhereAnEmptyTemporaryIsTakenOver) {
    AnyValue holder = this->holding(this->shared);
    AnyValue empty;
    holder.moveAssign(empty);
    this->expectCopies(1);
    EXPECT_FALSE(holder.hasValue());
}

TYPED_TEST(HolderCounts, FallToZeroOnceWithTheLastHolder) {
    std::optional<AnyValue> first(this->holding(this->shared));
    std::optional<AnyValue> last(*first);
    this->shared.drop();
    first.reset();
    EXPECT_EQ(this->shared.countsOfPointees(), UseCounts(TestFixture::Value::pointees, 1));
    EXPECT_EQ(this->shared.releases(), 0u);
    last.reset();
    this->expectReleased(this->shared);
}

TYPED_TEST(HolderCounts, StayAsTheyAreWhereThereIsNoMemoryForACopy) {
    if (TestFixture::kAllocationsOfACopy == 0) return;
    const AnyValue source = this->holding(this->shared);
    AnyValue destination = this->holding(this->former);
    const auto* held = destination.getIf<TypeParam>();
    const AllocationCount count;
    {
        const AllocationFailure failure;
        EXPECT_THROW(destination = source, std::bad_alloc);
    }
    {
        const AllocationFailure failure;
        EXPECT_THROW(AnyValue copy(source), std::bad_alloc);
    }
    {
        const AllocationFailure failure;
        EXPECT_THROW(this->holding(this->shared), std::bad_alloc);
    }
    EXPECT_EQ(count.outstanding(), 0);
    EXPECT_EQ(destination.getIf<TypeParam>(), held);
    this->expectCopies(2);
    this->expectCopies(this->former, 2);
}

TYPED_TEST(HolderCounts, OfWhatAHolderIsAskedForStayAndTakeNoMemory) {
    AnyValue holder = this->holding(this->shared);
    const AnyValue empty;
    const AllocationCount count;
    EXPECT_NE(holder.getIf<TypeParam>(), nullptr);
    EXPECT_EQ(holder.getIf<Pelmor::String>(), nullptr);
    EXPECT_EQ(empty.getIf<TypeParam>(), nullptr);
    EXPECT_TRUE(holder.hasValue());
    EXPECT_NE(&holder.type(), &empty.type());
    EXPECT_EQ(count.allocations() + count.deallocations(), 0u);
    this->expectCopies(2);
}

TYPED_TEST(HolderCounts, OfAHolderThatMovesTakeNoMemory) {
    AnyValue first = this->holding(this->shared);
    const AllocationCount count;
    AnyValue second(std::move(first));
    first = std::move(second);
    second.moveAssign(first);
    EXPECT_EQ(count.allocations() + count.deallocations(), 0u);
    EXPECT_TRUE(second.hasValue());
}

TYPED_TEST(HolderCounts, OfACopyTakeMemoryForARecordAlone) {
    const AllocationCount count;
    {
        const AnyValue holder = this->holding(this->shared);
        EXPECT_EQ(count.allocations(), this->kAllocationsOfACopy);
        const AnyValue copy(holder);
        EXPECT_EQ(count.allocations(), 2 * this->kAllocationsOfACopy);
        AnyValue assigned;
        assigned = copy;
        EXPECT_EQ(count.allocations(), 3 * this->kAllocationsOfACopy);
        EXPECT_EQ(count.deallocations(), 0u);
    }
    EXPECT_EQ(count.outstanding(), 0);
}

template <typename Record>
class HolderOfObjects : public testing::Test {};
using RecordsWithObjects = testing::Types<Rigging::Module::Inputs, Rigging::Module::Outputs>;
TYPED_TEST_SUITE(HolderOfObjects, RecordsWithObjects, );

TYPED_TEST(HolderOfObjects, SharesTheDefaultObjectTwiceInEachRecord) {
    const auto& object = Pelmor::Internal::getDefaultClass<Tavrik::Object>();
    const std::uint64_t before = object.useCount();
    {
        const AnyValue record = AnyValue::holding(TypeParam());
        EXPECT_EQ(object.useCount(), before + 2);
        const AnyValue copy(record);
        EXPECT_EQ(object.useCount(), before + 4);
        const AnyValue array = AnyValue::holding(Pelmor::makePtr<Pelmor::Array<TypeParam>>(3u));
        EXPECT_EQ(object.useCount(), before + 10);
        const AnyValue sharing(array);
        EXPECT_EQ(object.useCount(), before + 10);
    }
    EXPECT_EQ(object.useCount(), before);
}

}  // namespace
