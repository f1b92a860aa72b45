// The writers that the registry files: what becomes of the graph's holder.
#include "tests/support/CallRecorder.h"
#include "tests/support/ErrorMessage.h"
#include "tests/support/HeldTranslators.h"
#include "tests/support/HostPort.h"
#include "tests/support/RecordLeaves.h"

#include <Pelmor/AnyValue.h>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using Pelmor::AnyValue;

template <typename Held>
class WriteFromAny : public testing::Test {
protected:
    HostPort port = HostPort::ofHeld<Held>();

    void write(const AnyValue& value) {
        HeldTranslators<Held>::write(value, port.handle, port.plug);
    }

    // Hands over a value that the writer is not for.
    void expectRefusal(const AnyValue& value) {
        Numbers numbers(500);
        number(numbers, port.handle, port.plug);
        const Leaves before = port.leaves();
        CallRecorder calls;
        EXPECT_EQ(errorMessageOf([&] { write(value); }), "Internal error !");
        EXPECT_EQ(calls.lines(), CallRecorder::Lines{});
        EXPECT_EQ(port.leaves(), before);
    }
};
TYPED_TEST_SUITE(WriteFromAny, HeldTypes, NameOfType);

TYPED_TEST(WriteFromAny, WritesTheHeldValue) {
    this->write(AnyValue::holding(numbered<TypeParam>()));
    EXPECT_EQ(this->port.leaves(), leavesOf(numbered<TypeParam>()));
}

TYPED_TEST(WriteFromAny, LeavesTheHeldValueAsItWas) {
    const AnyValue value = AnyValue::holding(numbered<TypeParam>());
    this->write(value);
    ASSERT_NE(value.template getIf<TypeParam>(), nullptr);
    EXPECT_EQ(leavesOf(*value.template getIf<TypeParam>()), leavesOf(numbered<TypeParam>()));
}

TYPED_TEST(WriteFromAny, RefusesAnEmptyHolder) { this->expectRefusal(AnyValue()); }

TYPED_TEST(WriteFromAny, RefusesAnArrayForARecordAndARecordForAnArray) {
    using Other = typename HeldTranslators<TypeParam>::Other;
    this->expectRefusal(AnyValue::holding(numbered<Other>()));
}

TYPED_TEST(WriteFromAny, RefusesAnotherRecord) {
    if constexpr (std::is_same_v<typename HeldTranslators<TypeParam>::Element, Pins>)
        this->expectRefusal(AnyValue::holding(numbered<NamedTransforms>()));
    else
        this->expectRefusal(AnyValue::holding(numbered<Pins>()));
}

TYPED_TEST(WriteFromAny, LetsTheErrorsOfTheWriterPass) {
    Numbers numbers;
    number(numbers, this->port.handle, this->port.plug);
    const AnyValue value = AnyValue::holding(numbered<TypeParam>());
    CallRecorder calls;
    calls.fail("VArrayDataHandle::outputValue");
    EXPECT_EQ(
        errorMessageOf([&] { this->write(value); }),
        isOrHasArray<TypeParam>() ? "Cannot get handle on array element !" : "nothing thrown");
}

}  // namespace
