// The managers' side of the request protocol: every request is made by hand, on bare words.
#include "tests/support/AllocationCount.h"

#include <Pelmor/HeldValue.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

using Pelmor::AnyValueManager;
using Pelmor::AnyValueOp;
using Pelmor::AnyValueRequest;
using Pelmor::AnyValueWords;
using Pelmor::Array;
using Pelmor::makePtr;
using Pelmor::SharedArray;
using Pelmor::Internal::HeldIdentity;
using Pelmor::Internal::HolderStorage;
using Pelmor::Internal::kHeldInPlace;
using Pelmor::Internal::manageHeld;
using Pelmor::Internal::TypeInfo;
using TestSupport::AllocationCount;

// Too large for three words.
struct HeapRecord {
    SharedArray<double> values;
    double numbers[2] = {1, 2};
};

struct ThreeWords {
    double numbers[3];
};
struct FourWords {
    double numbers[4];
};
struct alignas(16) TwoAlignedWords {
    double numbers[2];
};

struct UnsafeToMove {
    UnsafeToMove() = default;
    UnsafeToMove(const UnsafeToMove&) {
        if (s_refuses) throw std::runtime_error("refused");
    }
    static inline bool s_refuses = false;
};

using Words = std::array<std::uintptr_t, 3>;

Words storageOf(const AnyValueWords& holder) {
    Words words;
    std::memcpy(words.data(), holder.storage, sizeof words);
    return words;
}

std::uintptr_t addressOf(const void* pointer) { return reinterpret_cast<std::uintptr_t>(pointer); }

template <typename T>
AnyValueWords holding(const T& value) {
    AnyValueWords holder{};
    HolderStorage<T>::construct(holder, value);
    holder.manager = &manageHeld<T>;
    return holder;
}

AnyValueRequest ask(AnyValueWords& holder, AnyValueOp operation, void* operand2 = nullptr) {
    AnyValueRequest request{operation, &holder, operand2, nullptr};
    // Read at run time, as in a holder that came from another library.
    const AnyValueManager volatile manager = holder.manager;
    manager(&request);
    return request;
}

void* askForType(AnyValueWords& holder, const TypeInfo& wanted) {
    return ask(holder, AnyValueOp::GetIfType, const_cast<TypeInfo*>(&wanted)).operand3;
}

AnyValueWords wordsFullOfRubbish() {
    AnyValueWords words{};
    std::memset(words.storage, 0xee, sizeof words.storage);
    words.manager = reinterpret_cast<AnyValueManager>(std::uintptr_t{0xeeee});
    return words;
}

TEST(AnyValueOp, CodesAreThoseOfTheProtocol) {
    const AnyValueOp inOrder[] = {AnyValueOp::Destroy,   AnyValueOp::Copy, AnyValueOp::Move,
                                  AnyValueOp::GetIfType, AnyValueOp::Get,  AnyValueOp::QueryType};
    static_assert(sizeof(AnyValueOp) == 4);
    for (std::uint32_t code = 0; code < 6; ++code)
        EXPECT_EQ(static_cast<std::uint32_t>(inOrder[code]), code);
}

TEST(HolderStorage, ValueIsInPlaceIfItFitsThreeWordsIsAlignedInThemAndMovesWithoutThrowing) {
    EXPECT_TRUE(kHeldInPlace<SharedArray<double>>);
    EXPECT_TRUE(kHeldInPlace<double>);
    EXPECT_TRUE(kHeldInPlace<ThreeWords>);
    EXPECT_FALSE(kHeldInPlace<FourWords>);
    EXPECT_FALSE(kHeldInPlace<HeapRecord>);
    EXPECT_FALSE(kHeldInPlace<TwoAlignedWords>);
    EXPECT_FALSE(kHeldInPlace<UnsafeToMove>);
}

// A manager of a value in place, and one of a value on the heap. Each value shares `array`.
template <typename Held>
class Manager : public testing::Test {
protected:
    static constexpr bool kInPlace = kHeldInPlace<Held>;

    Held sharingValue() const {
        if constexpr (kInPlace)
            return array;
        else
            return {array};
    }

    // Where the value has to lie.
    std::uintptr_t placeIn(const AnyValueWords& words) const {
        return kInPlace ? addressOf(words.storage) : storageOf(words)[0];
    }

    const SharedArray<double> array = makePtr<Array<double>>();
    AnyValueWords holder = holding(sharingValue());
    const Words before = storageOf(holder);
    AnyValueWords destination = wordsFullOfRubbish();
    const AllocationCount count;
};
using InPlaceAndHeap = testing::Types<SharedArray<double>, HeapRecord>;
TYPED_TEST_SUITE(Manager, InPlaceAndHeap, );

TYPED_TEST(Manager, DestroyDestroysTheValueOnceAndLeavesTheStorageWords) {
    ASSERT_EQ(this->array.useCount(), 2u);
    ask(this->holder, AnyValueOp::Destroy);
    EXPECT_EQ(this->array.useCount(), 1u);
    EXPECT_EQ(this->count.deallocations(), this->kInPlace ? 0u : 1u);
    EXPECT_EQ(this->holder.manager, nullptr);
    EXPECT_EQ(storageOf(this->holder), this->before);
}

TYPED_TEST(Manager, CopySharesArraysAndOverwritesTheDestinationUnread) {
    ask(this->holder, AnyValueOp::Copy, &this->destination);
    EXPECT_EQ(this->count.allocations(), this->kInPlace ? 0u : 1u);
    EXPECT_EQ(this->array.useCount(), 3u);
    EXPECT_EQ(this->destination.manager, &manageHeld<TypeParam>);
    EXPECT_EQ(storageOf(this->holder), this->before);
    EXPECT_EQ(this->holder.manager, &manageHeld<TypeParam>);
    if (this->kInPlace) {
        EXPECT_EQ(storageOf(this->destination), this->before);
    } else {
        EXPECT_NE(storageOf(this->destination)[0], this->before[0]);
        EXPECT_EQ(storageOf(this->destination), (Words{this->placeIn(this->destination), 0, 0}));
    }
    ask(this->destination, AnyValueOp::Destroy);
    ask(this->holder, AnyValueOp::Destroy);
    EXPECT_EQ(this->array.useCount(), 1u);
}

TYPED_TEST(Manager, MoveTakesTheWordsAndLeavesNulls) {
    ask(this->holder, AnyValueOp::Move, &this->destination);
    EXPECT_EQ(this->count.allocations(), 0u);
    EXPECT_EQ(this->array.useCount(), 2u);
    EXPECT_EQ(storageOf(this->destination), this->before);
    EXPECT_EQ(this->destination.manager, &manageHeld<TypeParam>);
    EXPECT_EQ(storageOf(this->holder), (Words{0, 0, 0}));
    EXPECT_EQ(this->holder.manager, nullptr);
    ask(this->destination, AnyValueOp::Destroy);
}

TYPED_TEST(Manager, GetAndGetIfTypeGiveTheAddressOfTheValue) {
    const void* byType = askForType(this->holder, HeldIdentity<TypeParam>::s_record);
    EXPECT_EQ(addressOf(byType), this->placeIn(this->holder));
    EXPECT_EQ(ask(this->holder, AnyValueOp::Get).operand2, byType);
    EXPECT_EQ(this->count.allocations(), 0u);
    ask(this->holder, AnyValueOp::Destroy);
}

TYPED_TEST(Manager, GetIfTypeGivesNullForAnyOtherIdentity) {
    const TypeInfo& own = HeldIdentity<TypeParam>::s_record;
    TypeInfo otherDepth = own, otherQualifier = own;
    otherDepth.arrayDepth = 1 - own.arrayDepth;
    otherQualifier.qualifier = 1;
    for (const TypeInfo* other : std::initializer_list<const TypeInfo*>{
             &otherDepth, &otherQualifier, &HeldIdentity<Pelmor::String>::s_record,
             &HeldIdentity<SharedArray<Pelmor::String>>::s_record, &TypeInfo::s_void})
        EXPECT_EQ(askForType(this->holder, *other), nullptr);
    ask(this->holder, AnyValueOp::Destroy);
}

TYPED_TEST(Manager, GetIfTypeKnowsAnotherRecordOfItsIdentityByNameOrByNamePointer) {
    const TypeInfo& own = HeldIdentity<TypeParam>::s_record;
    const std::string sameCharacters = own.name;
    const TypeInfo sameName(sameCharacters.c_str(), own.arrayDepth);
    TypeInfo sameNamePointer(own.name, own.arrayDepth);
    EXPECT_NE(askForType(this->holder, sameName), nullptr);
    EXPECT_NE(askForType(this->holder, sameNamePointer), nullptr);
    sameNamePointer.nameLength = 2;
    EXPECT_NE(askForType(this->holder, sameNamePointer), nullptr) << "whatever its length";
    ask(this->holder, AnyValueOp::Destroy);
}

TYPED_TEST(Manager, QueryTypeGivesTheIdentityOfTheValue) {
    EXPECT_EQ(ask(this->holder, AnyValueOp::QueryType).operand2,
              &HeldIdentity<TypeParam>::s_record);
    ask(this->holder, AnyValueOp::Destroy);
}

TEST(InPlaceManager, PointerLiesInTwoWordsAndTheThirdIsZero) {
    const auto array = makePtr<Array<double>>();
    AnyValueWords holder = holding(array);
    EXPECT_EQ(storageOf(holder)[0], addressOf(array.get()));
    EXPECT_NE(storageOf(holder)[1], 0u);
    EXPECT_EQ(storageOf(holder)[2], 0u);
    ask(holder, AnyValueOp::Destroy);
}

TEST(InPlaceManager, NullPointerIsAValue) {
    AnyValueWords holder = holding(SharedArray<double>());
    AnyValueWords copy{};
    ask(holder, AnyValueOp::Copy, &copy);
    EXPECT_EQ(storageOf(copy), (Words{0, 0, 0}));
    EXPECT_EQ(copy.manager, holder.manager);
    ask(copy, AnyValueOp::Destroy);
    ask(holder, AnyValueOp::Destroy);
    EXPECT_EQ(holder.manager, nullptr);
}

TEST(InPlaceManager, ValueMayTakeAllThreeWords) {
    AnyValueWords source = holding(ThreeWords{{1, 2, 3}});
    AnyValueWords destination{};
    ask(source, AnyValueOp::Move, &destination);
    const auto* moved = static_cast<ThreeWords*>(ask(destination, AnyValueOp::Get).operand2);
    EXPECT_EQ(moved->numbers[0], 1);
    EXPECT_EQ(moved->numbers[2], 3);
    ask(destination, AnyValueOp::Destroy);
}

TEST(HeapManager, ValueIsAlignedWhereverTheHolderLies) {
    struct alignas(16) {
        void* before;
        AnyValueWords holder;
    } words{nullptr, holding(TwoAlignedWords{{1, 2}})};
    AnyValueWords copy{};
    ask(words.holder, AnyValueOp::Copy, &copy);
    for (AnyValueWords* holder : {&words.holder, &copy}) {
        const auto* value = static_cast<TwoAlignedWords*>(ask(*holder, AnyValueOp::Get).operand2);
        EXPECT_EQ(addressOf(value) % 16, 0u);
        EXPECT_EQ(value->numbers[1], 2);
        ask(*holder, AnyValueOp::Destroy);
    }
}

TEST(HeapManager, CopyThatThrowsLeavesTheDestinationEmpty) {
    AnyValueWords source = holding(UnsafeToMove());
    AnyValueWords destination = wordsFullOfRubbish();
    UnsafeToMove::s_refuses = true;
    EXPECT_THROW(ask(source, AnyValueOp::Copy, &destination), std::runtime_error);
    UnsafeToMove::s_refuses = false;
    EXPECT_EQ(destination.manager, nullptr);
    EXPECT_EQ(storageOf(destination), (Words{0, 0, 0}));
    EXPECT_NE(source.manager, nullptr);
    ask(source, AnyValueOp::Destroy);
}

TEST(HeapManager, MoveDoesNotUseTheMoveOfTheValue) {
    AnyValueWords source = holding(UnsafeToMove());
    AnyValueWords destination{};
    UnsafeToMove::s_refuses = true;
    EXPECT_NO_THROW(ask(source, AnyValueOp::Move, &destination));
    UnsafeToMove::s_refuses = false;
    ask(destination, AnyValueOp::Destroy);
}

}  // namespace
