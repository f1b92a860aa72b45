// Reading a value of each carried type while one call of the host fails or throws, or one
// allocation fails: each in its turn.
#include "tests/faults/CallFault.h"
#include "tests/faults/Carrying.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/Endings.h"
#include "tests/support/SharedArrays.h"
#include "tests/support/ShownErrors.h"

#include <Pelmor/DefaultClass.h>

#include <algorithm>
#include <new>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace FaultTests;

const auto& defaultObject() { return Pelmor::Internal::getDefaultClass<Tavrik::Object>(); }

template <typename T>
void expectDefaultObjects(const T& value) {
    if constexpr (kIsObject<T>)
        EXPECT_EQ(value, defaultObject());
    else if constexpr (kIsArray<T>)
        for (const auto& element : *value) expectDefaultObjects(element);
    else if constexpr (!kIsPlain<T>)
        eachMemberAndObject(value, [](const auto& member) { expectDefaultObjects(member); });
}

template <typename Held>
class ReadFaults : public testing::Test {
protected:
    ReadFaults() {
        // What the host and the graph make but once is made now.
        port.read(value);
        port.read(value);
        value.reset();
    }

    bool read() { return port.read(value); }
    // The reader itself, which throws what the dispatch does not let pass.
    void readDirectly() { HeldTranslators<Held>::read(value, port.handle, port.plug); }

    void expectWholeValue() {
        auto* held = value.template getIf<Held>();
        ASSERT_NE(held, nullptr);
        for (const SharedArrayState& array : sharedArraysOf(*held)) {
            EXPECT_NE(array.address, nullptr);
            EXPECT_EQ(array.useCount, 1u);
            EXPECT_EQ(array.capacity, array.size);
        }
        expectDefaultObjects(*held);
        std::set<std::string> known(hostLeaves.lines().begin(), hostLeaves.lines().end());
        for (const auto& defaults :
             {leavesOf(0.0), leavesOf(Pelmor::String()), leavesOf(Math::double4x4{}), identity()})
            known.insert(defaults.lines().front());
        const Leaves found = leavesOf(*held);
        for (const std::string& line : found.lines())
            EXPECT_TRUE(known.count(line) == 1 || line == "0 elements") << line;
    }

    void expectRightNextTime() {
        EXPECT_EQ(port.leaves(), hostLeaves);
        ASSERT_TRUE(read());
        EXPECT_EQ(leavesOf(*value.template getIf<Held>()), hostLeaves);
    }

    static Leaves identity() {
        return leavesOf(Math::double4x4{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}});
    }

    std::size_t longTexts() const {
        const auto isLong = [](const std::string& line) {
            return line.front() == '"' && line.size() > 2 + 15;
        };
        return static_cast<std::size_t>(
            std::count_if(hostLeaves.lines().begin(), hostLeaves.lines().end(), isLong));
    }

    CarryingPort<Held> port{Numbers(1, {2, 1, 3, 0, 2})};
    const Leaves hostLeaves = port.leaves();
    const ShownErrors errors;
    AnyValue value;
};
TYPED_TEST_SUITE(ReadFaults, HeldTypes, NameOfType);

TYPED_TEST(ReadFaults, FailedCallGivesAWholeValueAndNoMessage) {
    const Operations plan = operationsOf([&] { this->read(); });
    this->value.reset();
    const auto objectUses = defaultObject().useCount();
    for (std::size_t nth = 1; nth <= plan.size() && !this->HasFailure(); ++nth) {
        SCOPED_TRACE(testing::Message() << nth << ", " << plan[nth - 1]);
        this->port.block.setDirty(this->port.plug.attribute());
        const auto former = numberedElements<double>(1);
        const AllocationCount count;
        this->value = AnyValue::holding(former);
        {
            const CallFault fault(nth, inTurn(kFailures, nth));
            EXPECT_TRUE(this->read());
            ASSERT_TRUE(fault.hasHappened());
            // A walk that cannot advance ends; nothing else changes what is done in between.
            const Operations& calls = fault.operations();
            const bool isNext = plan[nth - 1] == "VArrayDataHandle::next" && nth < calls.size();
            EXPECT_FALSE(isNext && calls[nth] == "VArrayDataHandle::inputValue");
            EXPECT_TRUE(plan[nth - 1].find("VDataHandle::as") != 0 || calls == plan);
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
    EXPECT_EQ(this->errors.messages(), ShownErrors::Messages{});
}

TYPED_TEST(ReadFaults, ExceptionOfACallPassesTheReaderAndLeavesTheHolder) {
    const auto calls = operationsOf([&] { this->readDirectly(); }).size();
    const auto former = numberedElements<double>(1);
    this->value = AnyValue::holding(former);
    for (std::size_t nth = 1; nth <= calls && !this->HasFailure(); ++nth) {
        SCOPED_TRACE(nth);
        const AllocationCount count;
        {
            const CallFault fault(nth, [] { throw NoStandardException(); });
            EXPECT_THROW(this->readDirectly(), NoStandardException);
        }
        EXPECT_EQ(count.outstanding(), 0);
        const auto* held = this->value.template getIf<Pelmor::SharedArray<double>>();
        ASSERT_TRUE(held && *held == former);
        EXPECT_EQ(former.useCount(), 2u);
    }
    this->expectRightNextTime();
}

template <typename Held>
using ReadFaultsDeathTest = ReadFaults<Held>;
TYPED_TEST_SUITE(ReadFaultsDeathTest, HeldTypes, NameOfType);

TYPED_TEST(ReadFaultsDeathTest, AnyExceptionOfACallEndsTheProcess) {
    const auto calls = operationsOf([&] { this->read(); }).size();
    const Endings endings = endingsOf([&](std::uint64_t nth) {
        const bool isRuntimeError = nth % 2 == 0;
        const CallFault fault(nth, isRuntimeError ? inTurn(kRuntimeErrors, nth / 2)
                                                  : inTurn(kOtherExceptions, nth / 2));
        this->read();
        return fault.hasHappened();
    });
    EXPECT_EQ(endings, times(calls, Ending::kTerminates));
}

TYPED_TEST(ReadFaultsDeathTest, AnyFailedAllocationEndsTheProcess) {
    const Endings endings = endingsWithoutMemory([&] { this->read(); });
    EXPECT_GT(endings.size(), 0u);
    EXPECT_EQ(endings, times(endings.size(), Ending::kTerminates));
}

// The reader itself throws where a text has no memory, and leaves nothing behind; it ends the
// process where an array, its control block or the holder's record has none.
TYPED_TEST(ReadFaultsDeathTest, OnlyAFailedAllocationOfATextPassesTheReader) {
    const AllocationCount ofNewRecord;
    TypeParam{};
    const std::size_t first = ofNewRecord.allocations();

    this->readDirectly();
    const auto* former = this->value.template getIf<TypeParam>();
    const Leaves before = leavesOf(*former);
    const Endings endings = endingsWithoutMemory([&] { this->readDirectly(); });
    std::size_t thrown = 0;
    for (std::size_t nth = first + 1; nth <= endings.size(); ++nth) {
        if (endings[nth - 1] == Ending::kTerminates) continue;
        ASSERT_EQ(endings[nth - 1], Ending::kThrows) << nth;
        ++thrown;
        const AllocationCount count;
        const AllocationFailure failure(nth);
        EXPECT_THROW(this->readDirectly(), std::bad_alloc);
        EXPECT_EQ(count.outstanding(), 0) << nth;
        EXPECT_EQ(this->value.template getIf<TypeParam>(), former);
        EXPECT_EQ(leavesOf(*former), before);
    }
    EXPECT_EQ(thrown, this->longTexts());
    EXPECT_TRUE(kIsArray<TypeParam> || endings.back() == Ending::kTerminates);
}

}  // namespace
