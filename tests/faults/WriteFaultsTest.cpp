// Each call of the host while a value is written is made to fail, one after the other. Whatever
// fails, the translation has been carried out; what is left of it is told by WriteRules.
#include "tests/convert/SharedArrays.h"
#include "tests/faults/FailingCall.h"
#include "tests/faults/Sweep.h"
#include "tests/faults/WritePlan.h"
#include "tests/faults/WriteRules.h"
#include "tests/plugin/Translation.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/ShownErrors.h"

#include <Pelmor/AnyValue.h>

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace FaultTests;
using TestSupport::AllocationCount;
using TestSupport::Numbers;
using TestSupport::ShownErrors;
using Lengths = std::vector<unsigned>;

const std::set<std::string> kWholePort{"rig.port"};

std::string messageFor(const PlannedCall& call) {
    return call.operation == "VArrayDataHandle::outputValue"
               ? "Cannot get handle on array element !"
               : "Cannot remove element from array";
}

template <typename Held>
class WriteFaults : public testing::Test {
protected:
    // Makes each call fail that is needed to write a value over one whose arrays have other
    // lengths.
    void sweep(const Lengths& graphLengths, const Lengths& hostLengths) {
        m_hostNumbers = Numbers(500, hostLengths);
        m_held = TestSupport::numbered<Held>(Numbers(1, graphLengths));
        m_value = Pelmor::AnyValue::holding(m_held);
        writeWithoutFailure();
        for (std::size_t failing = 0; failing < m_plan.size() && !this->HasFailure(); ++failing) {
            SCOPED_TRACE(std::string(m_plan[failing].operation) + " at " + m_plan[failing].place);
            const auto usesBefore = useCounts();
            const std::uint64_t objectUsesBefore = usesOfDefaultObject();
            const AllocationCount count;
            writeFailing(failing);
            EXPECT_EQ(count.outstanding(), 0);
            EXPECT_EQ(useCounts(), usesBefore);
            EXPECT_EQ(usesOfDefaultObject(), objectUsesBefore);
        }
    }

private:
    void writeWithoutFailure() {
        SweptPort<Held> port(m_hostNumbers);
        ShownErrors errors;
        m_host = port.entries();
        m_graph = entriesOf(m_held, port.plug);
        m_plan = planOfWriting(port.plug, m_graph, m_host);
        {
            FailingCall none;
            EXPECT_TRUE(m_translation->translateToHost(m_value, port.context));
            ASSERT_EQ(none.operations(), operationsOf(m_plan));
        }
        EXPECT_EQ(errors.messages(), ShownErrors::Messages{});
        EXPECT_EQ(port.entries(), m_graph);
    }

    void writeFailing(std::size_t failing) const {
        SweptPort<Held> port(m_hostNumbers);
        ShownErrors errors;
        // The last calls mark the whole port: what the writer marked shows before them.
        std::set<std::string> markedByWriter;
        Operations operations;
        {
            FailingCall fault(m_plan, failing);
            fault.lookBefore("VDataBlock::setClean",
                             [&] { markedByWriter = cleanAttributes(port.block, port.plug); });
            EXPECT_TRUE(m_translation->translateToHost(m_value, port.context));
            operations = fault.operations();
        }
        const auto markedAfter = cleanAttributes(port.block, port.plug);
        if (endsWriting(m_plan[failing])) {
            const WriteResult expected = resultOfEnding(m_plan, failing, m_graph, m_host);
            EXPECT_EQ(errors.messages(), ShownErrors::Messages{messageFor(m_plan[failing])});
            EXPECT_EQ(operations, callsUpTo(failing));
            EXPECT_EQ(port.entries(), expected.left);
            EXPECT_EQ(markedAfter, attributesAt(expected.marked, port.block, port.plug));
        } else {
            const WriteResult expected = resultOfGoingOn(m_plan, failing, m_graph, m_host);
            EXPECT_EQ(errors.messages(), ShownErrors::Messages{});
            EXPECT_EQ(port.entries(), expected.left);
            EXPECT_EQ(markedByWriter, attributesAt(expected.marked, port.block, port.plug));
            // The last two calls alone can keep the port from being marked.
            const bool isMarked = failing + 2 < m_plan.size();
            EXPECT_EQ(markedAfter,
                      attributesAt(isMarked ? kWholePort : expected.marked, port.block, port.plug));
        }
    }

    // The message is shown after the failing call, and nothing else is done.
    Operations callsUpTo(std::size_t failing) const {
        Operations operations = operationsOf(m_plan);
        operations.resize(failing + 1);
        operations.push_back("VGlobal::displayError");
        return operations;
    }

    std::vector<std::uint64_t> useCounts() const {
        std::vector<std::uint64_t> counts;
        Held copy = m_held;
        for (const auto& array : TestSupport::sharedArraysOf(copy))
            counts.push_back(array.useCount);
        return counts;
    }

    PluginTests::Translation m_translation = PluginTests::newTranslation();
    Numbers m_hostNumbers;
    Held m_held{};
    Pelmor::AnyValue m_value;
    Entries m_graph;
    Entries m_host;
    PlannedCalls m_plan;
};
TYPED_TEST_SUITE(WriteFaults, SweptTypes, NameOfSweptType);

TYPED_TEST(WriteFaults, WhereTheHostHasTheLengthsOfTheGraph) {
    this->sweep({2, 1, 3, 0, 2}, {2, 1, 3, 0, 2});
}

// The first length is that of the port itself, if it is an array.
TYPED_TEST(WriteFaults, WhereEveryArrayGrows) { this->sweep({3, 1, 0, 2}, {1, 0, 0, 1}); }

TYPED_TEST(WriteFaults, WhereEveryArrayShrinks) { this->sweep({2, 1, 0}, {3, 3, 1}); }

TYPED_TEST(WriteFaults, WhereOnlyTheArraysInsideShrink) {
    this->sweep({2, 1, 0, 2, 1, 1, 0}, {2, 3, 1, 2, 4, 3, 2});
}

TYPED_TEST(WriteFaults, WhereArraysGrowShrinkAndStay) {
    this->sweep({2, 1, 3, 0, 2}, {2, 3, 1, 2, 2, 0});
}

}  // namespace
