// The managers' side of the request protocol: every request is made by hand, on bare words.
#include "tests/support/AllocationCount.h"

#include <Pelmor/AnyValueManager.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <stdexcept>

#include <gtest/gtest.h>

namespace {

using Pelmor::AnyValueManager;
using Pelmor::AnyValueOp;
using Pelmor::AnyValueRequest;
using Pelmor::Array;
using Pelmor::makePtr;
using Pelmor::SharedArray;
using Pelmor::Internal::HeldIdentity;
using Pelmor::Internal::HolderStorage;
using Pelmor::Internal::HolderWords;
using Pelmor::Internal::kHeldInPlace;
using Pelmor::Internal::manageHeld;
using Pelmor::Internal::TypeInfo;
using TestSupport::AllocationCount;

// Too large for three words.
struct Record {
    SharedArray<double> values = makePtr<Array<double>>(2u);
    double numbers[2] = {1, 2};
};

struct ThreeWords {
    double numbers[3];
};
struct FourWords {
    double numbers[4];
};

struct UnsafeToMove {
    UnsafeToMove() = default;
    UnsafeToMove(const UnsafeToMove&) {
        if (s_refuses) throw std::runtime_error("refused");
    }
    static inline bool s_refuses = false;
};

using Words = std::array<std::uintptr_t, 3>;

Words storageOf(const HolderWords& holder) {
    Words words;
    std::memcpy(words.data(), holder.storage, sizeof words);
    return words;
}

std::uintptr_t addressOf(const void* pointer) { return reinterpret_cast<std::uintptr_t>(pointer); }

template <typename T>
HolderWords holding(const T& value) {
    HolderWords holder{};
    HolderStorage<T>::construct(holder, value);
    holder.manager = &manageHeld<T>;
    return holder;
}

AnyValueRequest ask(HolderWords& holder, AnyValueOp operation, void* operand2 = nullptr) {
    AnyValueRequest request{operation, &holder, operand2, nullptr};
    // Read at run time, as in a holder that came from another library.
    const AnyValueManager volatile manager = holder.manager;
    manager(&request);
    return request;
}

void* askForType(HolderWords& holder, const TypeInfo& wanted) {
    return ask(holder, AnyValueOp::GetIfType, const_cast<TypeInfo*>(&wanted)).operand3;
}

HolderWords wordsFullOfRubbish() {
    HolderWords words{};
    std::memset(words.storage, 0xee, sizeof words.storage);
    words.manager = reinterpret_cast<AnyValueManager>(std::uintptr_t{0xeeee});
    return words;
}

TEST(AnyValueOp, HasTheCodesOfTheProtocol) {
    EXPECT_EQ(static_cast<std::uint32_t>(AnyValueOp::Destroy), 0u);
    EXPECT_EQ(static_cast<std::uint32_t>(AnyValueOp::Copy), 1u);
    EXPECT_EQ(static_cast<std::uint32_t>(AnyValueOp::Move), 2u);
    EXPECT_EQ(static_cast<std::uint32_t>(AnyValueOp::GetIfType), 3u);
    EXPECT_EQ(static_cast<std::uint32_t>(AnyValueOp::Get), 4u);
    EXPECT_EQ(static_cast<std::uint32_t>(AnyValueOp::QueryType), 5u);
}

TEST(AnyValueRequest, IsA32BitCodeAndThreeWords) {
    EXPECT_EQ(sizeof(AnyValueRequest::operation), 4u);
    EXPECT_EQ(offsetof(AnyValueRequest, operation), 0u);
    EXPECT_EQ(offsetof(AnyValueRequest, operand1), 8u);
    EXPECT_EQ(offsetof(AnyValueRequest, operand2), 16u);
    EXPECT_EQ(offsetof(AnyValueRequest, operand3), 24u);
}

TEST(HolderStorage, IsInPlaceForWhatFitsThreeWordsAndMovesWithoutFail) {
    EXPECT_TRUE(kHeldInPlace<SharedArray<double>>);
    EXPECT_TRUE(kHeldInPlace<double>);
    EXPECT_TRUE(kHeldInPlace<ThreeWords>);
    EXPECT_FALSE(kHeldInPlace<FourWords>);
    EXPECT_FALSE(kHeldInPlace<Record>);
    EXPECT_FALSE(kHeldInPlace<UnsafeToMove>);
}

TEST(InPlaceManager, HoldsAPointerInTwoWordsWithTheThirdZero) {
    const auto array = makePtr<Array<double>>(1u);
    HolderWords holder = holding(array);
    EXPECT_EQ(storageOf(holder)[0], addressOf(array.get()));
    EXPECT_NE(storageOf(holder)[1], 0u);
    EXPECT_EQ(storageOf(holder)[2], 0u);
    ask(holder, AnyValueOp::Destroy);
}

TEST(InPlaceManager, DestroyDropsThePointerAndLeavesTheStorageWords) {
    const auto array = makePtr<Array<double>>(1u);
    HolderWords holder = holding(array);
    const Words before = storageOf(holder);
    ASSERT_EQ(array.useCount(), 2u);
    ask(holder, AnyValueOp::Destroy);
    EXPECT_EQ(array.useCount(), 1u);
    EXPECT_EQ(holder.manager, nullptr);
    EXPECT_EQ(storageOf(holder), before);
}

TEST(InPlaceManager, DestroyDisposesOfWhatNobodyElseHolds) {
    const AllocationCount count;
    HolderWords holder = holding(makePtr<Array<double>>(1u));
    EXPECT_EQ(count.outstanding(), 2);
    ask(holder, AnyValueOp::Destroy);
    EXPECT_EQ(count.outstanding(), 0);
}

TEST(InPlaceManager, HoldsANullPointerAsAValue) {
    HolderWords holder = holding(SharedArray<double>());
    HolderWords copy{};
    ask(holder, AnyValueOp::Copy, &copy);
    EXPECT_EQ(storageOf(copy), (Words{0, 0, 0}));
    EXPECT_EQ(copy.manager, holder.manager);
    ask(copy, AnyValueOp::Destroy);
    ask(holder, AnyValueOp::Destroy);
    EXPECT_EQ(holder.manager, nullptr);
}

TEST(InPlaceManager, CopySharesThePointeeAndOverwritesTheDestinationUnseen) {
    const auto array = makePtr<Array<double>>(1u);
    HolderWords source = holding(array);
    const Words before = storageOf(source);
    HolderWords destination = wordsFullOfRubbish();
    const AllocationCount count;
    ask(source, AnyValueOp::Copy, &destination);
    EXPECT_EQ(count.allocations(), 0u);
    EXPECT_EQ(array.useCount(), 3u);
    EXPECT_EQ(storageOf(destination), before);
    EXPECT_EQ(storageOf(source), before);
    EXPECT_EQ(destination.manager, &manageHeld<SharedArray<double>>);
    EXPECT_EQ(source.manager, &manageHeld<SharedArray<double>>);
    ask(destination, AnyValueOp::Destroy);
    ask(source, AnyValueOp::Destroy);
}

TEST(InPlaceManager, MoveTakesTheWordsAndLeavesNulls) {
    const auto array = makePtr<Array<double>>(1u);
    HolderWords source = holding(array);
    const Words before = storageOf(source);
    HolderWords destination = wordsFullOfRubbish();
    const AllocationCount count;
    ask(source, AnyValueOp::Move, &destination);
    EXPECT_EQ(count.allocations(), 0u);
    EXPECT_EQ(array.useCount(), 2u);
    EXPECT_EQ(storageOf(destination), before);
    EXPECT_EQ(storageOf(source), (Words{0, 0, 0}));
    EXPECT_EQ(destination.manager, &manageHeld<SharedArray<double>>);
    EXPECT_EQ(source.manager, nullptr);
    ask(destination, AnyValueOp::Destroy);
}

TEST(InPlaceManager, GivesTheAddressOfThePointerInsideTheHolder) {
    HolderWords holder = holding(makePtr<Array<double>>(1u));
    const AllocationCount count;
    EXPECT_EQ(askForType(holder, HeldIdentity<SharedArray<double>>::s_record), holder.storage);
    EXPECT_EQ(ask(holder, AnyValueOp::Get).operand2, holder.storage);
    EXPECT_EQ(count.allocations(), 0u);
    ask(holder, AnyValueOp::Destroy);
}

TEST(InPlaceManager, GivesNothingForTheIdentityOfAnElementOrOfOtherArrays) {
    HolderWords holder = holding(makePtr<Array<double>>(1u));
    EXPECT_EQ(askForType(holder, HeldIdentity<double>::s_record), nullptr);
    EXPECT_EQ(askForType(holder, HeldIdentity<SharedArray<Pelmor::String>>::s_record), nullptr);
    EXPECT_EQ(askForType(holder, TypeInfo::s_void), nullptr);
    ask(holder, AnyValueOp::Destroy);
}

TEST(InPlaceManager, TellsTheIdentityOfTheArray) {
    HolderWords holder = holding(makePtr<Array<double>>(1u));
    EXPECT_EQ(ask(holder, AnyValueOp::QueryType).operand2,
              &HeldIdentity<SharedArray<double>>::s_record);
    ask(holder, AnyValueOp::Destroy);
}

TEST(InPlaceManager, UsesAllThreeWordsWhereTheValueDoes) {
    HolderWords source = holding(ThreeWords{{1, 2, 3}});
    HolderWords destination{};
    ask(source, AnyValueOp::Move, &destination);
    const auto* moved = static_cast<ThreeWords*>(ask(destination, AnyValueOp::Get).operand2);
    EXPECT_EQ(moved->numbers[0], 1);
    EXPECT_EQ(moved->numbers[2], 3);
    ask(destination, AnyValueOp::Destroy);
}

TEST(HeapManager, HoldsTheAddressInTheFirstWordWithTheOthersZero) {
    HolderWords holder = holding(Record());
    EXPECT_EQ(storageOf(holder)[0], addressOf(ask(holder, AnyValueOp::Get).operand2));
    EXPECT_EQ(storageOf(holder)[1], 0u);
    EXPECT_EQ(storageOf(holder)[2], 0u);
    ask(holder, AnyValueOp::Destroy);
}

TEST(HeapManager, DestroyFreesTheValueAndLeavesTheStorageWords) {
    const AllocationCount count;
    HolderWords holder = holding(Record());
    const Words before = storageOf(holder);
    ask(holder, AnyValueOp::Destroy);
    EXPECT_EQ(count.outstanding(), 0);
    EXPECT_EQ(holder.manager, nullptr);
    EXPECT_EQ(storageOf(holder), before);
}

TEST(HeapManager, CopyMakesAValueOfItsOwnThatSharesArrays) {
    const Record record;
    HolderWords source = holding(record);
    const Words before = storageOf(source);
    HolderWords destination = wordsFullOfRubbish();
    const AllocationCount count;
    ask(source, AnyValueOp::Copy, &destination);
    EXPECT_EQ(count.allocations(), 1u);
    EXPECT_EQ(record.values.useCount(), 3u);
    const auto* copy = static_cast<Record*>(ask(destination, AnyValueOp::Get).operand2);
    EXPECT_NE(addressOf(copy), before[0]);
    EXPECT_EQ(copy->values.get(), record.values.get());
    EXPECT_EQ(copy->numbers[1], 2);
    EXPECT_EQ(storageOf(destination), (Words{addressOf(copy), 0, 0}));
    EXPECT_EQ(destination.manager, &manageHeld<Record>);
    EXPECT_EQ(storageOf(source), before);
    EXPECT_EQ(source.manager, &manageHeld<Record>);
    ask(destination, AnyValueOp::Destroy);
    ask(source, AnyValueOp::Destroy);
    EXPECT_EQ(record.values.useCount(), 1u);
}

TEST(HeapManager, CopyThatThrowsLeavesTheDestinationEmpty) {
    HolderWords source = holding(UnsafeToMove());
    HolderWords destination = wordsFullOfRubbish();
    UnsafeToMove::s_refuses = true;
    EXPECT_THROW(ask(source, AnyValueOp::Copy, &destination), std::runtime_error);
    UnsafeToMove::s_refuses = false;
    EXPECT_EQ(destination.manager, nullptr);
    EXPECT_EQ(storageOf(destination), (Words{0, 0, 0}));
    EXPECT_NE(source.manager, nullptr);
    ask(source, AnyValueOp::Destroy);
}

TEST(HeapManager, MoveTakesTheValueWhereItLiesAndLeavesNulls) {
    const Record record;
    HolderWords source = holding(record);
    const Words before = storageOf(source);
    HolderWords destination = wordsFullOfRubbish();
    const AllocationCount count;
    ask(source, AnyValueOp::Move, &destination);
    EXPECT_EQ(count.allocations(), 0u);
    EXPECT_EQ(record.values.useCount(), 2u);
    EXPECT_EQ(storageOf(destination), before);
    EXPECT_EQ(storageOf(source), (Words{0, 0, 0}));
    EXPECT_EQ(destination.manager, &manageHeld<Record>);
    EXPECT_EQ(source.manager, nullptr);
    ask(destination, AnyValueOp::Destroy);
}

TEST(HeapManager, MoveDoesNotUseTheValuesOwnMove) {
    HolderWords source = holding(UnsafeToMove());
    HolderWords destination{};
    UnsafeToMove::s_refuses = true;
    EXPECT_NO_THROW(ask(source, AnyValueOp::Move, &destination));
    UnsafeToMove::s_refuses = false;
    ask(destination, AnyValueOp::Destroy);
}

TEST(HeapManager, GivesTheValueForItsIdentityAndForNoOther) {
    HolderWords holder = holding(Record());
    const std::uintptr_t value = storageOf(holder)[0];
    const AllocationCount count;
    EXPECT_EQ(addressOf(askForType(holder, HeldIdentity<Record>::s_record)), value);
    EXPECT_EQ(askForType(holder, HeldIdentity<SharedArray<Record>>::s_record), nullptr);
    EXPECT_EQ(askForType(holder, HeldIdentity<FourWords>::s_record), nullptr);
    EXPECT_EQ(askForType(holder, TypeInfo::s_void), nullptr);
    EXPECT_EQ(count.allocations(), 0u);
    ask(holder, AnyValueOp::Destroy);
}

TEST(HeapManager, KnowsItsIdentityFromAnotherLibrarysRecordOfIt) {
    HolderWords holder = holding(Record());
    char name[256];
    std::strncpy(name, HeldIdentity<Record>::s_record.name, sizeof name - 1);
    const TypeInfo elsewhere(name, 0);
    EXPECT_EQ(addressOf(askForType(holder, elsewhere)), storageOf(holder)[0]);
    ask(holder, AnyValueOp::Destroy);
}

TEST(HeapManager, TellsItsIdentity) {
    HolderWords holder = holding(Record());
    EXPECT_EQ(ask(holder, AnyValueOp::QueryType).operand2, &HeldIdentity<Record>::s_record);
    ask(holder, AnyValueOp::Destroy);
}

}  // namespace
