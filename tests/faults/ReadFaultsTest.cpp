// Each call of the host while a value is read is made to fail, one after the other. Reading goes on
// with what the host gives then; only an array's walk ends where moving to the next element fails.
#include "tests/convert/SharedArrays.h"
#include "tests/faults/FailingCall.h"
#include "tests/faults/ReadPlan.h"
#include "tests/faults/Sweep.h"
#include "tests/plugin/Translation.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/ShownErrors.h"

#include <Pelmor/AnyValue.h>
#include <Pelmor/Library.h>

#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace FaultTests;
using TestSupport::AllocationCount;
using TestSupport::Numbers;
using TestSupport::ShownErrors;

// What stands behind the element in its array keeps a new element's values.
void keepDefaultsBehind(Entries& read, const std::string& element) {
    const std::size_t bracket = element.rfind('[');
    const std::string array = element.substr(0, bracket);
    const auto last = static_cast<unsigned>(std::stoul(element.substr(bracket + 1)));
    for (unsigned k = last + 1, length = lengthOf(read, array); k < length; ++k)
        blank(read, elementPlace(array, k), Defaults::OfGraph);
}

Entries readDespite(const PlannedCall& failing, const Entries& host) {
    Entries read = host;
    if (failing.operation == "VArrayDataHandle::next")
        keepDefaultsBehind(read, failing.place);
    else
        // A null plug, a null handle, a spare value or a count of 0.
        blank(read, failing.place, Defaults::OfHost);
    return read;
}

template <typename Record>
bool hasDefaultObjects(const Record& record) {
    const auto& object = Pelmor::Internal::getDefaultClass<Tavrik::Object>();
    return record.object0.get() == object.get() && record.object1.get() == object.get();
}

template <typename Record>
bool hasDefaultObjects(const Pelmor::SharedArray<Record>& array) {
    for (const Record& record : *array)
        if (!hasDefaultObjects(record)) return false;
    return true;
}

template <typename Held>
class ReadFaults : public testing::Test {
protected:
    void sweep(const std::vector<unsigned>& lengths) {
        m_numbers = Numbers(1, lengths);
        readWithoutFailure();
        for (std::size_t failing = 0; failing < m_plan.size() && !this->HasFailure(); ++failing) {
            SCOPED_TRACE(std::string(m_plan[failing].operation) + " at " + m_plan[failing].place);
            const std::uint64_t objectUsesBefore = usesOfDefaultObject();
            const AllocationCount count;
            readFailing(failing);
            EXPECT_EQ(count.outstanding(), 0);
            EXPECT_EQ(usesOfDefaultObject(), objectUsesBefore);
        }
    }

private:
    void readWithoutFailure() {
        SweptPort<Held> port(m_numbers);
        ShownErrors errors;
        m_host = port.entries();
        m_plan = planOfReading(port.plug, m_host);
        Pelmor::AnyValue value;
        {
            FailingCall none;
            EXPECT_TRUE(m_translation->translateFromHost(m_type, value, port.context));
            ASSERT_EQ(none.operations(), operationsOf(m_plan));
        }
        EXPECT_EQ(errors.messages(), ShownErrors::Messages{});
        ASSERT_NE(value.getIf<Held>(), nullptr);
        EXPECT_EQ(entriesOf(*value.getIf<Held>(), port.plug), m_host);
    }

    void readFailing(std::size_t failing) const {
        SweptPort<Held> port(m_numbers);
        ShownErrors errors;
        const auto former = TestSupport::numberedElements<Rigging::Module::Pins>(1);
        Pelmor::AnyValue value = Pelmor::AnyValue::holding(former);
        Operations operations;
        {
            FailingCall fault(m_plan, failing);
            EXPECT_TRUE(m_translation->translateFromHost(m_type, value, port.context));
            operations = fault.operations();
        }
        EXPECT_EQ(errors.messages(), ShownErrors::Messages{});
        EXPECT_EQ(former.useCount(), 1u);
        expectRead(value, failing, port.plug);
        EXPECT_EQ(port.entries(), m_host);
        // Asking for the port's input cleans it, and nothing else does.
        EXPECT_EQ(port.isClean(), failing > 0);
    }

    void expectRead(Pelmor::AnyValue& value, std::size_t failing, const VPlug& plug) const {
        Held* held = value.getIf<Held>();
        ASSERT_NE(held, nullptr);
        ASSERT_EQ(entriesOf(*held, plug), readDespite(m_plan[failing], m_host));
        EXPECT_TRUE(hasDefaultObjects(*held));
        for (const auto& array : TestSupport::sharedArraysOf(*held)) {
            EXPECT_NE(array.address, nullptr);
            EXPECT_EQ(array.useCount, 1u);
            EXPECT_EQ(array.capacity, array.size);
        }
    }

    static Pelmor::Type portType() {
        const bool isInputs = std::is_same_v<typename SweptType<Held>::Element, Inputs>;
        const std::string record =
            isInputs ? "Rigging::Module::Inputs" : "Rigging::Module::Outputs";
        const std::string name = SweptType<Held>::isArray ? "array<" + record + ">" : record;
        return Pelmor::Library().getType(name.c_str());
    }

    PluginTests::Translation m_translation = PluginTests::newTranslation();
    const Pelmor::Type m_type = portType();
    Numbers m_numbers;
    Entries m_host;
    PlannedCalls m_plan;
};
TYPED_TEST_SUITE(ReadFaults, SweptTypes, NameOfSweptType);

// The first length is that of the port itself, if it is an array.
TYPED_TEST(ReadFaults, OfTwoElements) { this->sweep({2, 1, 3, 0, 2}); }

TYPED_TEST(ReadFaults, OfThreeElements) { this->sweep({3, 1, 0, 2, 0}); }

TYPED_TEST(ReadFaults, OfEmptyArrays) { this->sweep({0}); }

}  // namespace
