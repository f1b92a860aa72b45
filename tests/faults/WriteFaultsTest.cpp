// Writing a value of each carried type while one call of the host fails or throws, or one
// allocation fails: each in its turn, where the host's arrays have the lengths of the graph's and
// where they have others.
#include "tests/faults/CallFault.h"
#include "tests/faults/CarryingPort.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/ErrorMessage.h"
#include "tests/support/SharedArrays.h"
#include "tests/support/ShownErrors.h"

#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace FaultTests;
using Messages = ShownErrors::Messages;

struct Lengths {
    const char* name;
    // The first is that of the port itself, if it is an array.
    std::vector<unsigned> graph, host;
};
const Lengths kInPlace{"in place", {2, 1, 2, 0, 1}, {2, 1, 2, 0, 1}};
const Lengths kGrowing{"growing", {2, 1, 0, 2}, {1, 0, 0, 1}};
const Lengths kShrinking{"shrinking", {1, 1, 0}, {2, 3, 1}};
const Lengths kInside{"inside", {2, 1, 0, 2, 1, 1, 0}, {2, 2, 1, 2, 3, 1, 2}};

// What is shown when they fail is for the tests of the writers to say.
bool isChecked(std::string_view operation) {
    return operation == "VArrayDataHandle::outputValue" ||
           operation == "VArrayDataBuilder::removeElement";
}

struct Data {
    Data child(unsigned i) { return {handle.child(plug.child(i)), plug.child(i)}; }
    Data element(unsigned k) { return {elementOf(handle, k), plug.elementByLogicalIndex(k)}; }
    std::vector<unsigned> indices() const { return indicesOf(handle); }
    Leaves leaves() const { return leavesOf(handle, plug); }

    VDataHandle handle;
    VPlug plug;
};

// How far a write came: a letter for each part, which is a leaf or an array that changes its
// length, in their order; "n" for the new value, "o" for the former one, "?" for anything else.
std::string progressOf(Data now, Data former, Data written) {
    std::string progress;
    if (written.plug.isArray() && former.indices() == written.indices()) {
        if (now.indices() != written.indices()) return "?";
        for (const unsigned k : written.indices())
            progress += progressOf(now.element(k), former.element(k), written.element(k));
    } else if (!written.plug.isArray() && written.plug.isCompound()) {
        for (unsigned i = 0; i < written.plug.numChildren(); ++i)
            progress += progressOf(now.child(i), former.child(i), written.child(i));
    } else if (const Leaves leaves = now.leaves(); !leaves.lines().empty()) {
        progress = leaves == written.leaves() ? "n" : leaves == former.leaves() ? "o" : "?";
    }
    return progress;
}

// The same after the first calls of a write. A builder's elements are the array's when it is given
// back.
std::string progressAfter(std::size_t calls, const Operations& plan, std::size_t parts) {
    std::size_t written = 0, builders = 0;
    for (std::size_t i = 0; i < calls; ++i) {
        if (plan[i] == "VArrayDataHandle::builder") ++builders;
        const bool isGivenBack = plan[i] == "VArrayDataHandle::set";
        if (isGivenBack) --builders;
        const bool isLeaf =
            plan[i] == "VDataHandle::asMatrix" || plan[i].find("VDataHandle::set") == 0;
        if (builders == 0 && (isGivenBack || isLeaf)) ++written;
    }
    return std::string(written, 'n') + std::string(parts - written, 'o');
}

template <typename Held>
class WriteFaults : public testing::Test {
protected:
    using Port = CarryingPort<Held>;

    void begin(const Lengths& lengths) {
        value = AnyValue::holding(numbered<Held>(Numbers(1, lengths.graph)));
        for (auto* made : {&port, &former, &written})
            *made = std::make_unique<Port>(Numbers(500, lengths.host));
        plan = operationsOf([&] { EXPECT_TRUE(written->write(value)); });
        ASSERT_EQ(written->leaves(), leavesOf(*held()));
    }

    // Calls `check` for each call of a write, counted from 1, with a port of its own.
    template <typename Check>
    void sweep(const Check& check) {
        for (const Lengths& lengths : {kInPlace, kGrowing, kShrinking, kInside}) {
            begin(lengths);
            const Leaves before = leavesOf(*held());
            for (std::size_t nth = 1; nth <= plan.size() && !this->HasFailure(); ++nth) {
                SCOPED_TRACE(testing::Message() << lengths.name << ", " << nth);
                port.reset();
                const AllocationCount count;
                port = std::make_unique<Port>(Numbers(500, lengths.host));
                check(nth);
                port.reset();
                EXPECT_EQ(count.outstanding(), 0);
            }
            EXPECT_EQ(leavesOf(*held()), before);
            for (const SharedArrayState& array : sharedArraysOf(*held()))
                EXPECT_EQ(array.useCount, 1u);
        }
    }

    bool write() { return port->write(value); }
    Held* held() { return value.template getIf<Held>(); }
    std::string progress() const {
        return progressOf({port->handle, port->plug}, {former->handle, former->plug},
                          {written->handle, written->plug});
    }

    // What was written before call `nth` stays, and the rest is as it was.
    void expectProgressBefore(std::size_t nth) const {
        const std::string found = progress();
        EXPECT_EQ(found, progressAfter(nth - 1, plan, found.size()));
    }

    void expectRightNextTime() {
        const ShownErrors errors;
        EXPECT_TRUE(write());
        EXPECT_EQ(progress().find_first_not_of('n'), std::string::npos);
        EXPECT_TRUE(port->isClean());
        EXPECT_EQ(errors.messages(), Messages{});
    }

    AnyValue value;
    std::unique_ptr<Port> port, former, written;
    Operations plan;
};
TYPED_TEST_SUITE(WriteFaults, HeldTypes, NameOfType);

// The output is taken before the writer is called: that call may not throw.
TYPED_TEST(WriteFaults, CheckedFailureOrRuntimeErrorOfACallEndsTheWriteWithItsMessage) {
    for (const bool throws : {false, true})
        this->sweep([&](std::size_t nth) {
            if (throws && nth == 1) return;
            const Raise raise = throws ? inTurn(kRuntimeErrors, nth) : Raise();
            const bool ends = throws || isChecked(this->plan[nth - 1]);
            {
                const ShownErrors errors;
                const CallFault fault(nth, raise, inTurn(kFailures, nth));
                EXPECT_TRUE(this->write());
                EXPECT_EQ(errors.messages().size(), ends ? 1u : 0u);
                EXPECT_TRUE(!throws || errors.messages() == Messages{errorMessageOf(raise)});
                // Nothing but the message follows; or the write goes on to its end.
                EXPECT_EQ(fault.operations().back(),
                          ends ? "VGlobal::displayError" : this->plan.back());
                EXPECT_TRUE(!ends || fault.operations().size() == nth + 1);
            }
            if (ends) this->expectProgressBefore(nth);
            // The last two calls clean the port; the writer of an array has done so by then.
            const bool isAtEnd = nth + 2 > this->plan.size();
            EXPECT_EQ(this->port->isClean(), isAtEnd ? kIsArray<TypeParam> : !ends);
            this->expectRightNextTime();
        });
}

template <typename Held>
using WriteFaultsDeathTest = WriteFaults<Held>;
TYPED_TEST_SUITE(WriteFaultsDeathTest, HeldTypes, NameOfType);

TYPED_TEST(WriteFaultsDeathTest, AnythingButARuntimeErrorEndsTheProcess) {
    this->begin(kGrowing);
    const Endings endings = endingsOf([&](std::uint64_t nth) {
        const CallFault fault(nth, inTurn(kOtherExceptions, nth));
        this->write();
        return fault.hasHappened();
    });
    EXPECT_EQ(endings, times(this->plan.size(), Ending::kTerminates));
    const Endings withoutMemory = endingsWithoutMemory([&] { this->write(); });
    EXPECT_EQ(withoutMemory, times(withoutMemory.size(), Ending::kTerminates));
    EXPECT_EQ(withoutMemory.empty(), !isOrHasArray<TypeParam>());
}

// Refuses what is checked, and throws where that is shown.
class RefusesAndThrows : public OpenVornik::Testing::CallObserver {
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        if (call.operation == "VGlobal::displayError") kRuntimeErrors[0]();
        return isChecked(call.operation) ? VStatus::kFailure : VStatus::kSuccess;
    }
};

TYPED_TEST(WriteFaultsDeathTest, RuntimeErrorBeforeTheWriterOrOfTheMessageEndsTheProcess) {
    this->begin(kInPlace);
    const Endings endings = endingsOf([&](std::uint64_t nth) {
        if (nth == 1) {
            const CallFault fault(1, kRuntimeErrors[0]);
            this->write();
        } else if (nth == 2) {
            const RefusesAndThrows host;
            this->write();
        }
        return nth == 1 || (nth == 2 && isOrHasArray<TypeParam>());
    });
    EXPECT_EQ(endings, times(isOrHasArray<TypeParam>() ? 2 : 1, Ending::kTerminates));
}

}  // namespace
