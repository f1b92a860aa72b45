#include "tests/support/AllocationCount.h"

#include <Pelmor/AnyValue.h>

#include <cstring>
#include <stdexcept>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Pelmor::AnyValue;
using Pelmor::AnyValueOp;
using Pelmor::AnyValueRequest;
using Pelmor::AnyValueWords;
using Pelmor::Array;
using Pelmor::makePtr;
using Pelmor::SharedArray;
using Pelmor::String;
using Pelmor::Internal::HeldIdentity;
using Pelmor::Internal::HolderStorage;
using Pelmor::Internal::manageHeld;
using Pelmor::Internal::TypeInfo;
using TestSupport::AllocationCount;

struct LargeRecord {
    SharedArray<double> values;
    double numbers[2];
};

struct Uncopyable {
    explicit Uncopyable(double first) : numbers{first} {}
    Uncopyable(Uncopyable&&) = default;
    Uncopyable(const Uncopyable&) { throw std::runtime_error("refused"); }
    double numbers[4];
};

AnyValue recordHolder() { return AnyValue::holding(LargeRecord{makePtr<Array<double>>(), {1, 2}}); }

using Requests = std::vector<AnyValueOp>;

Requests g_requests;
bool g_resultWordsWereNull = true;

// The manager of a LargeRecord, which notes what it is asked.
void noteAndManage(AnyValueRequest* request) {
    g_requests.push_back(request->operation);
    const bool isTypedAccess = request->operation == AnyValueOp::GetIfType;
    const bool isQuery = request->operation == AnyValueOp::QueryType;
    if (isTypedAccess && request->operand3 != nullptr) g_resultWordsWereNull = false;
    if (isQuery && request->operand2 != nullptr) g_resultWordsWereNull = false;
    manageHeld<LargeRecord>(request);
}

// Its copies inherit the manager.
AnyValue watchedHolder() {
    AnyValueWords words;
    HolderStorage<LargeRecord>::construct(words, LargeRecord{makePtr<Array<double>>(), {1, 2}});
    words.manager = &noteAndManage;
    return AnyValue::adopting(words);
}

template <typename Operation>
Requests requestsOf(Operation operation) {
    g_requests.clear();
    operation();
    return g_requests;
}

// What the next call finds in the words that it does not set.
[[gnu::noinline]] void fillTheStackWithRubbish() {
    unsigned char rubbish[4096];
    std::memset(rubbish, 0xee, sizeof rubbish);
    // The array is used, as far as the compiler can tell.
    __asm__ volatile("" : : "r"(rubbish) : "memory");
}

TEST(AnyValue, NewHolderIsEmpty) {
    AnyValue holder;
    EXPECT_FALSE(holder.hasValue());
    EXPECT_EQ(&holder.type(), &TypeInfo::s_void);
    EXPECT_EQ(holder.getIf<double>(), nullptr);
    EXPECT_EQ(holder.words().manager, nullptr);
}

TEST(AnyValue, SmallValuesAreHeldWithoutAllocating) {
    const String text("hip");
    const AllocationCount count;
    auto number = AnyValue::holding(2.5);
    auto string = AnyValue::holding(text);
    EXPECT_EQ(count.allocations(), 0u);
    EXPECT_EQ(*number.getIf<double>(), 2.5);
    EXPECT_TRUE(*string.getIf<String>() == "hip");
    EXPECT_EQ(static_cast<const void*>(string.getIf<String>()), &string);
}

TEST(AnyValue, HoldingCopiesOrMovesTheValueAsItIsGiven) {
    const AllocationCount count;
    LargeRecord record{makePtr<Array<double>>(), {1, 2}};
    {
        const auto holder = AnyValue::holding(record);
        EXPECT_EQ(record.values.useCount(), 2u);
        EXPECT_EQ(holder.getIf<LargeRecord>()->values.get(), record.values.get());
    }
    EXPECT_EQ(record.values.useCount(), 1u);
    EXPECT_EQ(count.outstanding(), 1) << "the array that `record` holds";
    const auto holder = AnyValue::holding(std::move(record));
    EXPECT_FALSE(record.values);
    EXPECT_EQ(holder.getIf<LargeRecord>()->values.useCount(), 1u);
}

TEST(AnyValue, TypeIsTheIdentityOfTheHeldValue) {
    EXPECT_EQ(&AnyValue::holding(2.5).type(), &HeldIdentity<double>::s_record);
    EXPECT_EQ(&AnyValue::holding(SharedArray<double>()).type(),
              &HeldIdentity<SharedArray<double>>::s_record);
}

TEST(AnyValue, CopyHoldsAValueOfItsOwn) {
    const AnyValue original = recordHolder();
    AnyValue copy(original);
    EXPECT_NE(copy.getIf<LargeRecord>(), original.getIf<LargeRecord>());
    copy.getIf<LargeRecord>()->numbers[0] = 9;
    EXPECT_EQ(original.getIf<LargeRecord>()->numbers[0], 1);
    EXPECT_EQ(original.getIf<LargeRecord>()->values.useCount(), 2u);
}

TEST(AnyValue, CopyAssignmentReplacesTheValue) {
    const AllocationCount count;
    {
        AnyValue holder = recordHolder();
        const auto other = AnyValue::holding(String("a name of more than fifteen characters"));
        holder = other;
        EXPECT_EQ(holder.getIf<LargeRecord>(), nullptr);
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
    AnyValue holder = recordHolder();
    AnyValue& same = holder;
    holder = same;
    ASSERT_NE(holder.getIf<LargeRecord>(), nullptr);
    EXPECT_EQ(holder.getIf<LargeRecord>()->values.useCount(), 1u);
    const LargeRecord* held = holder.getIf<LargeRecord>();
    holder = std::move(same);
    EXPECT_EQ(holder.getIf<LargeRecord>(), held);
}

TEST(AnyValue, MoveKeepsAHeapValueWhereItIsAllocatesNothingAndEmptiesTheSource) {
    AnyValue source = recordHolder();
    const LargeRecord* held = source.getIf<LargeRecord>();
    const AllocationCount count;
    AnyValue destination(std::move(source));
    EXPECT_FALSE(source.hasValue());
    EXPECT_EQ(destination.getIf<LargeRecord>(), held);
    source = std::move(destination);
    EXPECT_FALSE(destination.hasValue());
    EXPECT_EQ(source.getIf<LargeRecord>(), held);
    destination.moveAssign(source);
    EXPECT_EQ(destination.getIf<LargeRecord>(), held);
    EXPECT_EQ(count.allocations() + count.deallocations(), 0u);
}

TEST(AnyValue, MoveAssignAsksForDestroyThenMove) {
    AnyValue holder = watchedHolder();
    AnyValue temporary = watchedHolder();
    const auto former = holder.getIf<LargeRecord>()->values;
    const auto next = temporary.getIf<LargeRecord>()->values;
    EXPECT_EQ(requestsOf([&] { holder.moveAssign(temporary); }),
              (Requests{AnyValueOp::Destroy, AnyValueOp::Move}));
    EXPECT_FALSE(temporary.hasValue());
    EXPECT_EQ(former.useCount(), 1u);
    EXPECT_EQ(holder.getIf<LargeRecord>()->values.get(), next.get());
    EXPECT_EQ(next.useCount(), 2u);
}

TEST(AnyValue, MoveAssignAsksOnlyTheManagersThatThereAre) {
    AnyValue empty, holder, temporary = watchedHolder();
    EXPECT_EQ(requestsOf([&] { holder.moveAssign(temporary); }), Requests{AnyValueOp::Move});
    EXPECT_EQ(requestsOf([&] { holder.moveAssign(empty); }), Requests{AnyValueOp::Destroy});
    EXPECT_FALSE(holder.hasValue());
    EXPECT_EQ(requestsOf([&] { holder.moveAssign(empty); }), Requests{});
}

TEST(AnyValue, ResetDestroysTheValueOnce) {
    AnyValue holder = watchedHolder();
    EXPECT_EQ(requestsOf([&] { holder.reset(); }), Requests{AnyValueOp::Destroy});
    EXPECT_FALSE(holder.hasValue());
    EXPECT_EQ(requestsOf([&] { holder.reset(); }), Requests{});
}

TEST(AnyValue, EachOperationIsOneRequest) {
    AnyValue holder = watchedHolder();
    EXPECT_EQ(requestsOf([&] { holder.type(); }), Requests{AnyValueOp::QueryType});
    EXPECT_EQ(requestsOf([&] { holder.getIf<LargeRecord>(); }), Requests{AnyValueOp::GetIfType});
    EXPECT_EQ(requestsOf([&] { holder.getIf<double>(); }), Requests{AnyValueOp::GetIfType});
    EXPECT_EQ(requestsOf([&] { AnyValue copy(holder); }),
              (Requests{AnyValueOp::Copy, AnyValueOp::Destroy}));
    EXPECT_EQ(requestsOf([&] { AnyValue moved(std::move(holder)); }),
              (Requests{AnyValueOp::Move, AnyValueOp::Destroy}));
}

TEST(AnyValue, ResultWordIsNullWhenARequestIsMade) {
    AnyValue holder = watchedHolder();
    g_resultWordsWereNull = true;
    fillTheStackWithRubbish();
    holder.type();
    fillTheStackWithRubbish();
    holder.getIf<LargeRecord>();
    EXPECT_TRUE(g_resultWordsWereNull);
}

TEST(AnyValue, NoManagerIsAskedForAnEmptyHolder) {
    AnyValue holder = watchedHolder();
    AnyValue movedTo(std::move(holder));
    AnyValue destroyed = watchedHolder();
    destroyed.reset();
    for (AnyValue* empty : {&holder, &destroyed}) {
        const auto useEmpty = [empty] {
            EXPECT_EQ(&empty->type(), &TypeInfo::s_void);
            EXPECT_EQ(empty->getIf<LargeRecord>(), nullptr);
            AnyValue copy(*empty);
            AnyValue moved(std::move(*empty));
            copy = *empty;
            empty->reset();
        };
        EXPECT_EQ(requestsOf(useEmpty), Requests{});
    }
}

}  // namespace
