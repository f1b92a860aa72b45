// Reading a value of each carried type while one call of the host fails or throws, or one
// allocation fails: each in its turn.
#include "tests/faults/CallFault.h"
#include "tests/faults/CarryingPort.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/SharedArrays.h"
#include "tests/support/ShownErrors.h"

#include <Pelmor/DefaultClass.h>

#include <algorithm>
#include <new>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace FaultTests;

const auto& defaultObject() { return Pelmor::Internal::getDefaultClass<Tavrik::Object>(); }

template <typename Held>
class ReadFaults : public testing::Test {
protected:
    // What the host and the graph make but once is made now.
    ReadFaults() {
        port.read(value);
        value.reset();
    }

    void expectWholeValue() {
        auto* held = value.template getIf<Held>();
        ASSERT_NE(held, nullptr);
        for (const SharedArrayState& array : sharedArraysOf(*held)) {
            EXPECT_NE(array.address, nullptr);
            EXPECT_EQ(array.useCount, 1u);
            EXPECT_EQ(array.capacity, array.size);
        }
        eachObject(*held, [](const Object& object) { EXPECT_EQ(object, defaultObject()); });
    }

    void expectRightNextTime() {
        EXPECT_EQ(port.leaves(), hostLeaves);
        ASSERT_TRUE(port.read(value));
        EXPECT_EQ(leavesOf(*value.template getIf<Held>()), hostLeaves);
    }

    CarryingPort<Held> port{Numbers(1, {2, 1, 3, 0, 2})};
    const Leaves hostLeaves = port.leaves();
    AnyValue value;
};
TYPED_TEST_SUITE(ReadFaults, HeldTypes, NameOfType);

TYPED_TEST(ReadFaults, FailedCallGivesAWholeValueAndNoMessage) {
    const Operations plan = operationsOf([&] { this->port.read(this->value); });
    this->value.reset();
    const ShownErrors errors;
    const auto former = numberedElements<double>(1);
    const auto objectUses = defaultObject().useCount();
    for (std::size_t nth = 1; nth <= plan.size() && !this->HasFailure(); ++nth) {
        SCOPED_TRACE(testing::Message() << nth << ", " << plan[nth - 1]);
        this->port.block.setDirty(this->port.plug.attribute());
        const AllocationCount count;
        this->value = AnyValue::holding(former);
        {
            const CallFault fault(nth, {}, inTurn(kFailures, nth));
            EXPECT_TRUE(this->port.read(this->value));
            // A walk that cannot advance ends.
            const Operations& calls = fault.operations();
            const bool isNext = plan[nth - 1] == "VArrayDataHandle::next" && nth < calls.size();
            EXPECT_FALSE(isNext && calls[nth] == "VArrayDataHandle::inputValue");
        }
        EXPECT_EQ(former.useCount(), 1u);
        this->expectWholeValue();
        // Asking for the port's input cleans it, and nothing else does.
        EXPECT_EQ(this->port.isClean(), nth > 1);
        this->expectRightNextTime();
        this->value.reset();
        EXPECT_EQ(defaultObject().useCount(), objectUses);
        EXPECT_EQ(count.outstanding(), 0);
    }
    EXPECT_EQ(errors.messages(), ShownErrors::Messages{});
}

TYPED_TEST(ReadFaults, ExceptionOfACallPassesTheReaderAndLeavesTheHolder) {
    const auto read = [&] { this->port.readDirectly(this->value); };
    const auto calls = operationsOf(read).size();
    const auto former = numberedElements<double>(1);
    this->value = AnyValue::holding(former);
    for (std::size_t nth = 1; nth <= calls && !this->HasFailure(); ++nth) {
        const AllocationCount count;
        {
            const CallFault fault(nth, [] { throw 42; });
            EXPECT_THROW(read(), int) << nth;
        }
        EXPECT_EQ(count.outstanding(), 0) << nth;
        EXPECT_EQ(former.useCount(), 2u) << nth;
    }
    this->expectRightNextTime();
}

template <typename Held>
using ReadFaultsDeathTest = ReadFaults<Held>;
TYPED_TEST_SUITE(ReadFaultsDeathTest, HeldTypes, NameOfType);

TYPED_TEST(ReadFaultsDeathTest, ExceptionsAndFailedAllocationsEndTheProcess) {
    expectTermination([&] { this->port.read(this->value); });
}

// The reader itself throws where a text has no memory, and leaves nothing behind; it ends the
// process where an array, its control block or the holder's record has none.
TYPED_TEST(ReadFaultsDeathTest, OnlyAFailedAllocationOfATextPassesTheReader) {
    const AllocationCount ofNewRecord;
    static_cast<void>(TypeParam{});
    const std::size_t first = ofNewRecord.allocations();
    const auto read = [&] { this->port.readDirectly(this->value); };
    const auto former = numberedElements<double>(1);
    this->value = AnyValue::holding(former);
    const Endings endings = endingsWithoutMemory(read);
    std::ptrdiff_t thrown = 0;
    for (std::size_t nth = first + 1; nth <= endings.size(); ++nth) {
        if (endings[nth - 1] == Ending::kTerminates) continue;
        ++thrown;
        const AllocationCount count;
        const AllocationFailure failure(nth);
        EXPECT_THROW(read(), std::bad_alloc);
        EXPECT_EQ(count.outstanding(), 0) << nth;
        EXPECT_EQ(former.useCount(), 2u) << nth;
    }
    const auto isLongText = [](const std::string& line) {
        return line.front() == '"' && line.size() > 2 + 15;
    };
    const auto& lines = this->hostLeaves.lines();
    EXPECT_EQ(thrown, std::count_if(lines.begin(), lines.end(), isLongText));
    EXPECT_TRUE(kIsArray<TypeParam> || endings.back() == Ending::kTerminates);
}

}  // namespace
