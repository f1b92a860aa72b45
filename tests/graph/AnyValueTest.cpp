#include "tests/support/AllocationCount.h"

#include <Pelmor/AnyValue.h>

#include <stdexcept>
#include <utility>

#include <gtest/gtest.h>

namespace {

using Pelmor::AnyValue;
using Pelmor::AnyValueRequest;
using Pelmor::Array;
using Pelmor::makePtr;
using Pelmor::SharedArray;
using Pelmor::String;
using Pelmor::Internal::HeldIdentity;
using Pelmor::Internal::HolderWords;
using Pelmor::Internal::manageHeld;
using Pelmor::Internal::TypeInfo;
using TestSupport::AllocationCount;

struct Record {
    SharedArray<double> values;
    double numbers[2];
};

struct Uncopyable {
    explicit Uncopyable(double first) : numbers{first} {}
    Uncopyable(Uncopyable&&) = default;
    Uncopyable(const Uncopyable&) { throw std::runtime_error("refused"); }
    double numbers[4];
};

int g_requests = 0;

void countAndManage(AnyValueRequest* request) {
    ++g_requests;
    manageHeld<Record>(request);
}

// A holder whose manager counts what it is asked, and from which its copies inherit that.
AnyValue countedHolder() {
    auto holder = AnyValue::holding(Record{nullptr, {1, 2}});
    const_cast<HolderWords&>(holder.words()).manager = &countAndManage;
    return holder;
}

TEST(AnyValue, IsEmptyAtFirst) {
    AnyValue holder;
    EXPECT_FALSE(holder.hasValue());
    EXPECT_EQ(&holder.type(), &TypeInfo::s_void);
    EXPECT_EQ(holder.getIf<double>(), nullptr);
    EXPECT_EQ(holder.words().manager, nullptr);
}

TEST(AnyValue, IsFourWordsTheLastOfWhichIsTheManager) {
    EXPECT_EQ(sizeof(AnyValue), 32u);
    EXPECT_EQ(offsetof(HolderWords, manager), 24u);
    const auto holder = AnyValue::holding(2.5);
    EXPECT_EQ(static_cast<const void*>(&holder.words()), &holder);
    EXPECT_EQ(holder.words().manager, &manageHeld<double>);
}

TEST(AnyValue, HoldsSmallValuesWithoutAllocating) {
    const String text("hip");
    const AllocationCount count;
    auto number = AnyValue::holding(2.5);
    auto string = AnyValue::holding(text);
    EXPECT_EQ(count.allocations(), 0u);
    EXPECT_EQ(*number.getIf<double>(), 2.5);
    EXPECT_TRUE(*string.getIf<String>() == "hip");
    EXPECT_EQ(static_cast<const void*>(string.getIf<String>()), &string);
}

TEST(AnyValue, HoldsACopyOfWhatItIsGiven) {
    const AllocationCount count;
    const Record record{makePtr<Array<double>>(1u), {1, 2}};
    {
        const auto holder = AnyValue::holding(record);
        EXPECT_EQ(record.values.useCount(), 2u);
        EXPECT_EQ(holder.getIf<Record>()->values.get(), record.values.get());
    }
    EXPECT_EQ(record.values.useCount(), 1u);
    EXPECT_EQ(count.outstanding(), 2) << "the array that `record` holds, and its elements";
}

TEST(AnyValue, HoldsWhatIsMovedIntoIt) {
    Record record{makePtr<Array<double>>(1u), {1, 2}};
    const auto holder = AnyValue::holding(std::move(record));
    EXPECT_FALSE(record.values);
    EXPECT_EQ(holder.getIf<Record>()->values.useCount(), 1u);
}

TEST(AnyValue, TellsTheTypeThatItHolds) {
    EXPECT_EQ(&AnyValue::holding(2.5).type(), &HeldIdentity<double>::s_record);
    EXPECT_EQ(&AnyValue::holding(SharedArray<double>()).type(),
              &HeldIdentity<SharedArray<double>>::s_record);
}

TEST(AnyValue, GivesNothingForATypeThatItDoesNotHold) {
    auto number = AnyValue::holding(2.5);
    EXPECT_EQ(number.getIf<SharedArray<double>>(), nullptr);
    EXPECT_EQ(number.getIf<String>(), nullptr);
    auto numbers = AnyValue::holding(makePtr<Array<double>>(1u));
    EXPECT_EQ(numbers.getIf<double>(), nullptr);
    EXPECT_EQ(numbers.getIf<SharedArray<String>>(), nullptr);
    EXPECT_NE(numbers.getIf<SharedArray<double>>(), nullptr);
}

TEST(AnyValue, GivesAHeldArrayByItsPointerInsideTheHolder) {
    const auto array = makePtr<Array<double>>(1u);
    auto holder = AnyValue::holding(array);
    SharedArray<double>* held = holder.getIf<SharedArray<double>>();
    EXPECT_EQ(static_cast<void*>(held), &holder);
    EXPECT_EQ(held->get(), array.get());
    EXPECT_EQ(array.useCount(), 2u);
}

TEST(AnyValue, HoldsANullPointerAsAValue) {
    auto holder = AnyValue::holding(SharedArray<double>());
    EXPECT_TRUE(holder.hasValue());
    ASSERT_NE(holder.getIf<SharedArray<double>>(), nullptr);
    EXPECT_FALSE(*holder.getIf<SharedArray<double>>());
}

TEST(AnyValue, AllocatesNothingOnAccessAndOnMove) {
    auto record = AnyValue::holding(Record{makePtr<Array<double>>(1u), {1, 2}});
    auto array = AnyValue::holding(makePtr<Array<double>>(1u));
    const AllocationCount count;
    record.getIf<Record>();
    array.getIf<SharedArray<double>>();
    record.type();
    AnyValue movedRecord(std::move(record));
    AnyValue movedArray;
    movedArray = std::move(array);
    record.moveAssign(movedRecord);
    EXPECT_EQ(count.allocations(), 0u);
    EXPECT_EQ(count.deallocations(), 0u);
    EXPECT_TRUE(record.hasValue());
    EXPECT_TRUE(movedArray.hasValue());
}

TEST(AnyValue, CopyHoldsAValueOfItsOwn) {
    const auto original = AnyValue::holding(Record{makePtr<Array<double>>(1u), {1, 2}});
    AnyValue copy(original);
    EXPECT_NE(copy.getIf<Record>(), original.getIf<Record>());
    copy.getIf<Record>()->numbers[0] = 9;
    EXPECT_EQ(original.getIf<Record>()->numbers[0], 1);
    EXPECT_EQ(original.getIf<Record>()->values.useCount(), 2u);
}

TEST(AnyValue, CopyAssignmentReplacesTheValue) {
    const AllocationCount count;
    {
        auto holder = AnyValue::holding(Record{makePtr<Array<double>>(1u), {1, 2}});
        const auto other = AnyValue::holding(String("a name of more than fifteen characters"));
        holder = other;
        EXPECT_EQ(holder.getIf<Record>(), nullptr);
        EXPECT_TRUE(*holder.getIf<String>() == *other.getIf<String>());
        holder = AnyValue();
        EXPECT_FALSE(holder.hasValue());
    }
    EXPECT_EQ(count.outstanding(), 0);
}

TEST(AnyValue, CopyAssignmentThatThrowsLeavesTheFormerValue) {
    auto holder = AnyValue::holding(2.5);
    const auto other = AnyValue::holding(Uncopyable(1));
    EXPECT_THROW(holder = other, std::runtime_error);
    ASSERT_NE(holder.getIf<double>(), nullptr);
    EXPECT_EQ(*holder.getIf<double>(), 2.5);
}

TEST(AnyValue, AssignmentToItselfKeepsTheValue) {
    auto holder = AnyValue::holding(Record{makePtr<Array<double>>(1u), {1, 2}});
    AnyValue& same = holder;
    holder = same;
    ASSERT_NE(holder.getIf<Record>(), nullptr);
    EXPECT_EQ(holder.getIf<Record>()->values.useCount(), 1u);
    const Record* held = holder.getIf<Record>();
    holder = std::move(same);
    EXPECT_EQ(holder.getIf<Record>(), held);
}

TEST(AnyValue, MoveKeepsAHeapValueWhereItIsAndEmptiesTheSource) {
    auto source = AnyValue::holding(Record{makePtr<Array<double>>(1u), {1, 2}});
    const Record* held = source.getIf<Record>();
    AnyValue destination(std::move(source));
    EXPECT_FALSE(source.hasValue());
    EXPECT_EQ(destination.getIf<Record>(), held);
    source = std::move(destination);
    EXPECT_FALSE(destination.hasValue());
    EXPECT_EQ(source.getIf<Record>(), held);
}

TEST(AnyValue, MoveKeepsTheCountOfAHeldArray) {
    const auto array = makePtr<Array<double>>(1u);
    auto source = AnyValue::holding(array);
    AnyValue destination(std::move(source));
    EXPECT_FALSE(source.hasValue());
    EXPECT_EQ(array.useCount(), 2u);
    EXPECT_EQ(destination.getIf<SharedArray<double>>()->get(), array.get());
}

TEST(AnyValue, MoveAssignDestroysTheFormerValueBeforeItTakesTheNext) {
    const auto former = makePtr<Array<double>>(1u);
    const auto next = makePtr<Array<double>>(1u);
    auto holder = AnyValue::holding(former);
    auto temporary = AnyValue::holding(next);
    holder.moveAssign(temporary);
    EXPECT_EQ(former.useCount(), 1u);
    EXPECT_EQ(next.useCount(), 2u);
    EXPECT_FALSE(temporary.hasValue());
}

TEST(AnyValue, MoveAssignOfAnEmptyHolderEmpties) {
    const auto array = makePtr<Array<double>>(1u);
    auto holder = AnyValue::holding(array);
    AnyValue temporary;
    holder.moveAssign(temporary);
    EXPECT_FALSE(holder.hasValue());
    EXPECT_EQ(array.useCount(), 1u);
}

TEST(AnyValue, ResetDestroysTheValue) {
    const AllocationCount count;
    auto holder = AnyValue::holding(Record{makePtr<Array<double>>(1u), {1, 2}});
    holder.reset();
    EXPECT_FALSE(holder.hasValue());
    EXPECT_EQ(count.outstanding(), 0);
    holder.reset();
}

TEST(AnyValue, AsksItsManagerOnceForEachOperation) {
    AnyValue holder = countedHolder();
    const auto requestsFor = [](auto operation) {
        g_requests = 0;
        operation();
        return g_requests;
    };
    EXPECT_EQ(requestsFor([&] { holder.type(); }), 1);
    EXPECT_EQ(requestsFor([&] { holder.getIf<Record>(); }), 1);
    EXPECT_EQ(requestsFor([&] { holder.getIf<double>(); }), 1);
    EXPECT_EQ(requestsFor([&] { AnyValue copy(holder); }), 2) << "Copy, then Destroy of the copy";
    EXPECT_EQ(requestsFor([&] { AnyValue moved(std::move(holder)); }), 2) << "Move, then Destroy";
}

TEST(AnyValue, NeverAsksTheManagerOfAnEmptyHolder) {
    AnyValue holder = countedHolder();
    AnyValue movedTo(std::move(holder));
    AnyValue destroyed = countedHolder();
    destroyed.reset();
    g_requests = 0;
    for (AnyValue* empty : {&holder, &destroyed}) {
        EXPECT_FALSE(empty->hasValue());
        EXPECT_EQ(&empty->type(), &TypeInfo::s_void);
        EXPECT_EQ(empty->getIf<Record>(), nullptr);
        AnyValue copy(*empty);
        AnyValue moved(std::move(*empty));
        copy.moveAssign(moved);
        copy = *empty;
        empty->reset();
    }
    EXPECT_EQ(g_requests, 0);
}

}  // namespace
