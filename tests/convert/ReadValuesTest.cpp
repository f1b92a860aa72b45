// The readers that the registry files: what the graph's holder holds when they return.
#include "tests/support/AllocationCount.h"
#include "tests/support/HeldTranslators.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"
#include "tests/support/SharedArrays.h"

#include <OpenVornik/Testing/CallObserver.h>
#include <Pelmor/AnyValue.h>

#include <utility>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using Pelmor::AnyValue;
using Pelmor::Internal::HeldIdentity;

template <typename Held>
class ReadValue : public testing::Test {
protected:
    HostPort port = HostPort::ofHeld<Held>();
    AnyValue value;

    void numberHost(unsigned first = 1) {
        Numbers numbers(first);
        number(numbers, port.handle, port.plug);
    }
    void read() { HeldTranslators<Held>::read(value, port.handle, port.plug); }
};
TYPED_TEST_SUITE(ReadValue, HeldTypes, NameOfType);

TYPED_TEST(ReadValue, StoresWhatTheHostHolds) {
    this->numberHost();
    this->read();
    const auto* held = this->value.template getIf<TypeParam>();
    ASSERT_NE(held, nullptr);
    EXPECT_EQ(leavesOf(*held), leavesOf(numbered<TypeParam>()));
}

TYPED_TEST(ReadValue, StoresAValueOfItsTypeEvenWhereTheHostHoldsNothing) {
    this->read();
    ASSERT_TRUE(this->value.hasValue());
    EXPECT_TRUE(typeInfoEquals(this->value.type(), HeldIdentity<TypeParam>::s_record));
    auto* held = this->value.template getIf<TypeParam>();
    ASSERT_NE(held, nullptr);
    for (const SharedArrayState& array : sharedArraysOf(*held)) {
        EXPECT_NE(array.address, nullptr);
        EXPECT_EQ(array.size, 0u);
    }
    EXPECT_EQ(this->value.template getIf<typename HeldTranslators<TypeParam>::Other>(), nullptr);
}

TYPED_TEST(ReadValue, LeavesTheHolderTheOnlyReferenceToEveryArray) {
    this->numberHost();
    this->read();
    const auto arrays = sharedArraysOf(*this->value.template getIf<TypeParam>());
    EXPECT_EQ(arrays.empty(), !isOrHasArray<TypeParam>());
    for (const SharedArrayState& array : arrays) EXPECT_EQ(array.useCount, 1u);
}

// Sees at every call of the host whether an array is still in use twice.
class WatchUse : public OpenVornik::Testing::CallObserver {
public:
    explicit WatchUse(const Pelmor::SharedArray<double>& array) : m_array(array) {}

    bool wasAlwaysUsedTwice = true;
    unsigned calls = 0;

private:
    VStatus::Code called(const OpenVornik::Testing::Call&) override {
        ++calls;
        wasAlwaysUsedTwice = wasAlwaysUsedTwice && m_array.useCount() == 2;
        return VStatus::kSuccess;
    }

    const Pelmor::SharedArray<double>& m_array;
};

TYPED_TEST(ReadValue, KeepsWhatTheHolderHeldUntilAllIsRead) {
    this->numberHost();
    const auto before = numberedElements<double>(3);
    this->value = AnyValue::holding(before);
    WatchUse watch(before);
    this->read();
    EXPECT_GT(watch.calls, 0u);
    EXPECT_TRUE(watch.wasAlwaysUsedTwice);
    EXPECT_EQ(before.useCount(), 1u);
}

TYPED_TEST(ReadValue, TwiceGivesValuesThatShareNothing) {
    for (const unsigned secondNumber : {0U, 500U}) {  // The same data again, and other data.
        this->numberHost();
        this->read();
        AnyValue first = std::move(this->value);
        if (secondNumber > 0) this->numberHost(secondNumber);
        this->read();
        auto& firstHeld = *first.template getIf<TypeParam>();
        auto& secondHeld = *this->value.template getIf<TypeParam>();
        for (const SharedArrayState& a : sharedArraysOf(firstHeld))
            for (const SharedArrayState& b : sharedArraysOf(secondHeld))
                EXPECT_NE(a.address, b.address);
        EXPECT_EQ(leavesOf(firstHeld), leavesOf(numbered<TypeParam>()));
        EXPECT_EQ(leavesOf(secondHeld),
                  leavesOf(secondNumber > 0 ? numbered<TypeParam>(Numbers(secondNumber))
                                            : numbered<TypeParam>()));
    }
}

TYPED_TEST(ReadValue, GivesBackAllMemoryWithTheHolder) {
    this->numberHost();
    this->read();
    this->value.reset();
    const AllocationCount count;
    this->read();
    EXPECT_GT(count.outstanding(), 0);
    this->value.reset();
    EXPECT_EQ(count.outstanding(), 0);
}

}  // namespace
