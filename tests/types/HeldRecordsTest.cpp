#include "plugin/Records.h"
#include "tests/support/AllocationCount.h"
#include "tests/types/TransformNumbers.h"

#include <Pelmor/AnyValue.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

using namespace Rigging::Module;
using Pelmor::AnyValue;
using Pelmor::AnyValueOp;
using Pelmor::AnyValueRequest;
using Pelmor::SharedArray;
using Pelmor::Internal::HeldIdentity;
using Pelmor::Internal::HolderWords;
using Pelmor::Internal::TypeInfo;

// A value of each held type, and a pointer that it shares, to see how often it is shared.
template <typename Held>
struct Sample {
    Held value{};
    const auto& shared() const {
        if constexpr (std::is_same_v<Held, Inputs> || std::is_same_v<Held, Outputs>)
            return value.pins.names;
        else
            return value.names;
    }
};
template <>
struct Sample<Transform> {
    Transform value = TypesTests::numbered(3);
};
template <typename Record>
struct Sample<SharedArray<Record>> {
    SharedArray<Record> value = Pelmor::makePtr<Pelmor::Array<Record>>(2u);
    const SharedArray<Record>& shared() const { return value; }
};

template <typename Held>
constexpr bool kShares = !std::is_same_v<Held, Transform>;
template <typename Held>
constexpr bool kInPlace = false;
template <typename Record>
constexpr bool kInPlace<SharedArray<Record>> = true;

using Storage = std::array<const void*, 3>;

Storage storageOf(const HolderWords& holder) {
    Storage words;
    std::memcpy(words.data(), holder.storage, sizeof words);
    return words;
}

Storage storageOf(const AnyValue& holder) { return storageOf(holder.words()); }

// What a holder's manager answers when it is asked directly.
AnyValueRequest ask(AnyValueOp operation, HolderWords& holder, void* operand2 = nullptr) {
    AnyValueRequest request{operation, &holder, operand2, nullptr};
    holder.manager(&request);
    return request;
}

void* valueIfOfType(HolderWords& holder, const TypeInfo& wanted) {
    return ask(AnyValueOp::GetIfType, holder, const_cast<TypeInfo*>(&wanted)).operand3;
}

// Words that hold a copy of `value`, to be destroyed by a request.
template <typename Held>
HolderWords wordsHolding(const Held& value) {
    AnyValue holder = AnyValue::holding(value);
    HolderWords words{};
    AnyValueRequest move{AnyValueOp::Move, const_cast<HolderWords*>(&holder.words()), &words,
                         nullptr};
    holder.words().manager(&move);
    return words;
}

template <typename HeldType>
class Held : public testing::Test {
protected:
    void expectUses([[maybe_unused]] std::uint64_t count) const {
        if constexpr (kShares<HeldType>) {
            EXPECT_EQ(sample.shared().useCount(), count);
        }
    }

    Sample<HeldType> sample;
};

using HeldTypes =
    testing::Types<Transform, NamedTransforms, Pins, InputsJoints, InputsControls, Inputs, Outputs,
                   SharedArray<Transform>, SharedArray<NamedTransforms>, SharedArray<Pins>,
                   SharedArray<InputsJoints>, SharedArray<InputsControls>, SharedArray<Inputs>,
                   SharedArray<Outputs>>;
TYPED_TEST_SUITE(Held, HeldTypes, );

TYPED_TEST(Held, LiesOnTheHeapIfARecordAndInTheHolderIfAnArray) {
    AnyValue holder = AnyValue::holding(this->sample.value);
    const auto* value = holder.getIf<TypeParam>();
    if constexpr (kInPlace<TypeParam>) {
        EXPECT_EQ(static_cast<const void*>(value), &holder);
        EXPECT_EQ(storageOf(holder)[0], this->sample.value.get());
        EXPECT_NE(storageOf(holder)[1], nullptr);
        EXPECT_EQ(storageOf(holder)[2], nullptr);
    } else {
        EXPECT_EQ(storageOf(holder), (Storage{value, nullptr, nullptr}));
    }
}

TYPED_TEST(Held, IsSharedByACopyOfTheHolder) {
    HolderWords source = wordsHolding(this->sample.value);
    const Storage sourceBefore = storageOf(source);
    this->expectUses(2);
    HolderWords copy{};
    std::memset(copy.storage, 0xff, sizeof copy.storage);
    ask(AnyValueOp::Copy, source, &copy);
    this->expectUses(3);
    EXPECT_EQ(storageOf(source), sourceBefore);
    EXPECT_EQ(copy.manager, source.manager);
    if constexpr (kInPlace<TypeParam>) {
        EXPECT_EQ(storageOf(copy), sourceBefore);
    } else {
        EXPECT_NE(storageOf(copy)[0], sourceBefore[0]);
        EXPECT_EQ(storageOf(copy)[1], nullptr);
        EXPECT_EQ(storageOf(copy)[2], nullptr);
    }
    if constexpr (std::is_same_v<TypeParam, Transform>) {
        const void* value = storageOf(copy)[0];
        EXPECT_TRUE(TypesTests::sameNumbers(*static_cast<const Transform*>(value),
                                            TypesTests::numbered(3)));
    }
    ask(AnyValueOp::Destroy, copy);
    this->expectUses(2);
    ask(AnyValueOp::Destroy, source);
    this->expectUses(1);
}

TYPED_TEST(Held, MovesWithoutAnAllocationOrAChangeOfAnyCount) {
    HolderWords source = wordsHolding(this->sample.value);
    const Storage before = storageOf(source);
    const Pelmor::AnyValueManager manager = source.manager;
    HolderWords destination{};
    std::memset(destination.storage, 0xff, sizeof destination.storage);
    const TestSupport::AllocationCount count;
    ask(AnyValueOp::Move, source, &destination);
    EXPECT_EQ(count.allocations(), 0u);
    EXPECT_EQ(count.deallocations(), 0u);
    EXPECT_EQ(storageOf(destination), before);
    EXPECT_EQ(destination.manager, manager);
    EXPECT_EQ(source.manager, nullptr);
    EXPECT_EQ(storageOf(source), Storage());
    this->expectUses(2);
    ask(AnyValueOp::Destroy, destination);
    this->expectUses(1);
}

TYPED_TEST(Held, IsGivenBackByDestroyWhichEmptiesTheHolder) {
    const TestSupport::AllocationCount count;
    HolderWords holder = wordsHolding(this->sample.value);
    const Storage before = storageOf(holder);
    ask(AnyValueOp::Destroy, holder);
    EXPECT_EQ(holder.manager, nullptr);
    EXPECT_EQ(storageOf(holder), before);
    EXPECT_EQ(count.outstanding(), 0);
    this->expectUses(1);
}

TYPED_TEST(Held, IsGivenForItsOwnIdentityAlone) {
    HolderWords holder = wordsHolding(this->sample.value);
    void* value =
        kInPlace<TypeParam> ? static_cast<void*>(&holder) : const_cast<void*>(storageOf(holder)[0]);
    const TypeInfo& own = HeldIdentity<TypeParam>::s_record;
    EXPECT_EQ(valueIfOfType(holder, own), value);

    const std::string elsewhere = own.name;
    EXPECT_EQ(valueIfOfType(holder, TypeInfo(elsewhere.c_str(), own.arrayDepth)), value);

    EXPECT_EQ(valueIfOfType(holder, TypeInfo(own.name, 1 - own.arrayDepth)), nullptr);
    EXPECT_EQ(valueIfOfType(holder, TypeInfo(own.name, 2)), nullptr);
    TypeInfo qualified = own;
    qualified.qualifier = 1;
    EXPECT_EQ(valueIfOfType(holder, qualified), nullptr);
    EXPECT_EQ(valueIfOfType(holder, HeldIdentity<Pelmor::String>::s_record), nullptr);
    EXPECT_EQ(valueIfOfType(holder, TypeInfo::s_void), nullptr);
    ask(AnyValueOp::Destroy, holder);
}

TYPED_TEST(Held, IsGivenUncheckedByGet) {
    HolderWords holder = wordsHolding(this->sample.value);
    EXPECT_EQ(ask(AnyValueOp::Get, holder).operand2,
              valueIfOfType(holder, HeldIdentity<TypeParam>::s_record));
    ask(AnyValueOp::Destroy, holder);
}

TYPED_TEST(Held, TellsItsIdentity) {
    AnyValue holder;
    EXPECT_FALSE(holder.hasValue());
    EXPECT_EQ(&holder.type(), &TypeInfo::s_void);
    holder = AnyValue::holding(this->sample.value);
    EXPECT_TRUE(holder.hasValue());
    EXPECT_EQ(&holder.type(), &HeldIdentity<TypeParam>::s_record);
}

TYPED_TEST(Held, IsNoOtherHeldType) {
    const AnyValue holder = AnyValue::holding(this->sample.value);
    const bool answers[] = {holder.getIf<Transform>() != nullptr,
                            holder.getIf<NamedTransforms>() != nullptr,
                            holder.getIf<Pins>() != nullptr,
                            holder.getIf<InputsJoints>() != nullptr,
                            holder.getIf<InputsControls>() != nullptr,
                            holder.getIf<Inputs>() != nullptr,
                            holder.getIf<Outputs>() != nullptr,
                            holder.getIf<SharedArray<Transform>>() != nullptr,
                            holder.getIf<SharedArray<NamedTransforms>>() != nullptr,
                            holder.getIf<SharedArray<Pins>>() != nullptr,
                            holder.getIf<SharedArray<InputsJoints>>() != nullptr,
                            holder.getIf<SharedArray<InputsControls>>() != nullptr,
                            holder.getIf<SharedArray<Inputs>>() != nullptr,
                            holder.getIf<SharedArray<Outputs>>() != nullptr};
    EXPECT_NE(holder.getIf<TypeParam>(), nullptr);
    EXPECT_EQ(std::count(std::begin(answers), std::end(answers), true), 1);
}

TYPED_TEST(Held, ReplacesWhatAHolderHeld) {
    AnyValue holder = AnyValue::holding(this->sample.value);
    this->expectUses(2);
    AnyValue temporary = AnyValue::holding(TypeParam{});
    const Storage next = storageOf(temporary);
    holder.moveAssign(temporary);
    this->expectUses(1);
    EXPECT_EQ(storageOf(holder), next);
    EXPECT_FALSE(temporary.hasValue());
}

TEST(HeldNullArray, IsCopiedMovedAndDestroyed) {
    HolderWords holder = wordsHolding(SharedArray<Pins>());
    HolderWords copy{}, moved{};
    ask(AnyValueOp::Copy, holder, &copy);
    ask(AnyValueOp::Move, copy, &moved);
    EXPECT_NE(moved.manager, nullptr);
    EXPECT_EQ(storageOf(moved), Storage());
    ask(AnyValueOp::Destroy, moved);
    ask(AnyValueOp::Destroy, holder);
    EXPECT_EQ(moved.manager, nullptr);
    EXPECT_EQ(holder.manager, nullptr);
}

}  // namespace
