// Writing a value of each carried type while one call of the host fails or throws, or one
// allocation fails: each in its turn, where the host's arrays have the lengths of the graph's and
// where they have others.
#include "tests/faults/Carrying.h"
#include "tests/faults/Progress.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/Endings.h"
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
const Lengths kLengths[] = {{"in place", {2, 1, 2, 0, 1}, {2, 1, 2, 0, 1}},
                            {"growing", {2, 1, 0, 2}, {1, 0, 0, 1}},
                            {"shrinking", {1, 1, 0}, {2, 3, 1}},
                            {"shrinking inside", {2, 1, 0, 2, 1, 1, 0}, {2, 2, 1, 2, 3, 1, 2}}};

// The calls whose failure ends a write; the failure of any other changes nothing of what is done
// for the rest of the value.
const char* messageFor(std::string_view operation) {
    if (operation == "VArrayDataHandle::outputValue") return "Cannot get handle on array element !";
    if (operation == "VArrayDataBuilder::removeElement") return "Cannot remove element from array";
    return nullptr;
}

template <typename Held>
class WriteFaults : public testing::Test {
protected:
    using Port = CarryingPort<Held>;

    // Calls `check` for each of kLengths, and as often as there are calls in a write.
    template <typename Write, typename Check>
    void forEachCall(const Write& writeNow, const Check& check) {
        for (const Lengths& lengths : kLengths) {
            begin(lengths);
            plan = operationsOf(writeNow);
            written = hostTreeOf(port->handle, port->plug);
            EXPECT_EQ(port->leaves(), graphLeaves);
            for (std::size_t nth = 1; nth <= plan.size() && !this->HasFailure(); ++nth) {
                SCOPED_TRACE(testing::Message()
                             << lengths.name << ", " << nth << ", " << plan[nth - 1]);
                port.reset();
                const AllocationCount count;
                renewPort(lengths);
                check(nth);
                expectRightNextTime();
                port.reset();
                EXPECT_EQ(count.outstanding(), 0);
            }
            expectValueAsItWas();
        }
    }

    void begin(const Lengths& lengths) {
        value = AnyValue::holding(numbered<Held>(Numbers(1, lengths.graph)));
        graphLeaves = leavesOf(*held());
        renewPort(lengths);
        former = hostTreeOf(port->handle, port->plug);
    }
    void renewPort(const Lengths& lengths) {
        port = std::make_unique<Port>(Numbers(500, lengths.host));
    }

    bool write() { return port->write(value); }
    // The writer itself, which throws what the dispatch catches or does not let pass.
    void writeDirectly() { HeldTranslators<Held>::write(value, port->handle, port->plug); }

    Held* held() { return value.template getIf<Held>(); }
    std::string progress() const {
        return progressOf(hostTreeOf(port->handle, port->plug), former, written);
    }

    // What was written before call `nth` stays, and the rest is as it was.
    void expectProgressBefore(std::size_t nth) const {
        const std::string found = progress();
        EXPECT_EQ(found, progressAfter(nth - 1, plan, found.size()));
    }

    void expectValueAsItWas() {
        EXPECT_EQ(leavesOf(*held()), graphLeaves);
        for (const SharedArrayState& array : sharedArraysOf(*held())) EXPECT_EQ(array.useCount, 1u);
    }

    void expectRightNextTime() {
        const ShownErrors errors;
        EXPECT_TRUE(write());
        EXPECT_TRUE(hostTreeOf(port->handle, port->plug) == written);
        EXPECT_TRUE(port->isClean());
        EXPECT_EQ(errors.messages(), Messages{});
    }

    AnyValue value;
    Leaves graphLeaves;
    HostTree former, written;
    std::unique_ptr<Port> port;
    Operations plan;
};
TYPED_TEST_SUITE(WriteFaults, HeldTypes, NameOfType);

TYPED_TEST(WriteFaults, FailedCallEndsTheWriteWithAMessageWhereItIsChecked) {
    this->forEachCall([&] { this->write(); },
                      [&](std::size_t nth) {
                          const char* message = messageFor(this->plan[nth - 1]);
                          const ShownErrors errors;
                          Operations operations;
                          {
                              const CallFault fault(nth, inTurn(kFailures, nth));
                              EXPECT_TRUE(this->write());
                              operations = fault.operations();
                          }
                          if (message) {
                              EXPECT_EQ(errors.messages(), Messages{message});
                              this->expectProgressBefore(nth);
                              EXPECT_FALSE(this->port->isClean());
                              Operations ended(this->plan.begin(), this->plan.begin() + nth);
                              ended.push_back("VGlobal::displayError");
                              EXPECT_EQ(operations, ended);
                          } else {
                              EXPECT_EQ(errors.messages(), Messages{});
                              // The last two calls clean the port; the writer of an array has done
                              // so by then.
                              const bool isCleaned = nth + 2 <= this->plan.size();
                              EXPECT_EQ(this->port->isClean(), isCleaned || kIsArray<TypeParam>);
                              EXPECT_EQ(operations.back(), this->plan.back());
                          }
                      });
}

// The output is taken before the writer is called: that call may not throw.
TYPED_TEST(WriteFaults, RuntimeErrorOfACallIsShown) {
    this->forEachCall([&] { this->write(); },
                      [&](std::size_t nth) {
                          if (nth == 1) return;
                          const Raise& raise = inTurn(kRuntimeErrors, nth);
                          const ShownErrors errors;
                          {
                              const CallFault fault(nth, raise);
                              EXPECT_TRUE(this->write());
                          }
                          EXPECT_EQ(errors.messages(), Messages{errorMessageOf(raise)});
                          this->expectProgressBefore(nth);
                          const bool isWritten = nth + 2 > this->plan.size();
                          EXPECT_EQ(this->port->isClean(), isWritten && kIsArray<TypeParam>);
                      });
}

TYPED_TEST(WriteFaults, AnyExceptionOfACallPassesTheWriter) {
    this->forEachCall([&] { this->writeDirectly(); },
                      [&](std::size_t nth) {
                          {
                              const CallFault fault(nth, [] { throw NoStandardException(); });
                              EXPECT_THROW(this->writeDirectly(), NoStandardException);
                          }
                          this->expectProgressBefore(nth);
                          EXPECT_FALSE(this->port->isClean());
                      });
}

TYPED_TEST(WriteFaults, FailedAllocationPassesTheWriter) {
    for (const Lengths& lengths : {kLengths[1], kLengths[3]}) {
        this->begin(lengths);
        this->writeDirectly();
        this->written = hostTreeOf(this->port->handle, this->port->plug);
        bool hasFailed = true;
        for (std::size_t nth = 1; hasFailed && !this->HasFailure(); ++nth) {
            SCOPED_TRACE(testing::Message() << lengths.name << ", " << nth);
            this->port.reset();
            const AllocationCount count;
            this->renewPort(lengths);
            std::string_view last;
            {
                const CallFault calls;
                const AllocationFailure failure(nth);
                try {
                    this->writeDirectly();
                } catch (const std::bad_alloc&) {
                    last = calls.operations().back();
                }
                hasFailed = !failure.isPending();
            }
            EXPECT_EQ(hasFailed, !last.empty());
            // Where the host cannot make room for its elements, what is left is its own affair.
            if (last == "VArrayDataHandle::set" || last == "VArrayDataBuilder::addElement") {
                this->port.reset();
                continue;
            }
            if (hasFailed) {
                const std::string progress = this->progress();
                EXPECT_EQ(progress.find('?'), std::string::npos) << progress;
                EXPECT_EQ(progress.find("on"), std::string::npos) << progress;
                EXPECT_FALSE(this->port->isClean());
                this->expectRightNextTime();
            }
            this->port.reset();
            EXPECT_EQ(count.outstanding(), 0);
        }
        this->expectValueAsItWas();
    }
}

template <typename Held>
using WriteFaultsDeathTest = WriteFaults<Held>;
TYPED_TEST_SUITE(WriteFaultsDeathTest, HeldTypes, NameOfType);

TYPED_TEST(WriteFaultsDeathTest, AnyExceptionButARuntimeErrorEndsTheProcess) {
    this->begin(kLengths[1]);
    const auto calls = operationsOf([&] { this->write(); }).size();
    this->renewPort(kLengths[1]);
    const Endings endings = endingsOf([&](std::uint64_t nth) {
        const CallFault fault(nth, inTurn(kOtherExceptions, nth));
        this->write();
        return fault.hasHappened();
    });
    EXPECT_EQ(endings, times(calls, Ending::kTerminates));
}

TYPED_TEST(WriteFaultsDeathTest, AnyFailedAllocationEndsTheProcess) {
    this->begin(kLengths[1]);
    const Endings endings = endingsWithoutMemory([&] { this->write(); });
    EXPECT_EQ(endings, times(endings.size(), Ending::kTerminates));
    EXPECT_EQ(endings.empty(), kIsRecord<TypeParam> && !isOrHasArray<TypeParam>());
}

// Refuses what is checked, and throws where that is shown.
class RefusesAndThrows : public OpenVornik::Testing::CallObserver {
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        if (call.operation == "VGlobal::displayError") throw std::runtime_error("no display");
        return messageFor(call.operation) ? VStatus::kFailure : VStatus::kSuccess;
    }
};

TYPED_TEST(WriteFaultsDeathTest, RuntimeErrorWhileAMessageIsShownEndsTheProcess) {
    if (!isOrHasArray<TypeParam>()) return;
    this->begin(kLengths[0]);
    const Endings endings = endingsOf([&](std::uint64_t nth) {
        if (nth != 1) return false;
        const RefusesAndThrows host;
        this->write();
        return true;
    });
    EXPECT_EQ(endings, times(1, Ending::kTerminates));
}

TYPED_TEST(WriteFaultsDeathTest, RuntimeErrorWhereTheOutputIsTakenEndsTheProcess) {
    this->begin(kLengths[0]);
    const Endings endings = endingsOf([&](std::uint64_t nth) {
        if (nth != 1) return false;
        const CallFault fault(1, kRuntimeErrors[0]);
        this->write();
        return true;
    });
    EXPECT_EQ(endings, times(1, Ending::kTerminates));
}

}  // namespace
