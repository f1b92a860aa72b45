// Adding a port of each carried type, and of a struct with one member of each kind, while one call
// of the host fails or throws, or one allocation fails: each in its turn.
#include "plugin/VornikRiggingTranslation.h"
#include "tests/faults/CallFault.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/AttributeTree.h"
#include "tests/support/CarriedTypes.h"
#include "tests/support/Endings.h"
#include "tests/support/ShownErrors.h"

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <Pelmor/Library.h>

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace FaultTests;
using namespace TestSupport;
using TavrikGraph::Executor::PortDirection;
using Messages = ShownErrors::Messages;

const Pelmor::String kPort("a port with a name of more than fifteen characters");

// A node that is being edited.
struct Edit {
    bool add(const Pelmor::Type& type, VDGModifier& modifier,
             const Pelmor::String& name = kPort) const {
        TavrikGraph::Executor::NodeEditContext context{nullptr, node, nullptr, &modifier};
        return translation.portAdded(name, PortDirection::Input, type, 0, 0, &context);
    }
    unsigned attributes() const { return VFnDependencyNode(node).attributeCount(); }
    AttributeLines tree() const { return treeOf(VFnDependencyNode(node).attribute(kPort.c_str())); }

    const Rigging::Module::VornikRiggingTranslation translation;
    const VObject node = VFnDependencyNode().create("rig");
};

class PortFaults : public testing::TestWithParam<std::string> {
protected:
    const Pelmor::Type type = Pelmor::Library().getType(GetParam().c_str());
};
INSTANTIATE_TEST_SUITE_P(Carried, PortFaults, testing::ValuesIn(carriedTypes()), nameOfTest);

TEST_P(PortFaults, FailedCallIsRefusedWithOneMessageOrGoneOnAfter) {
    const Edit undisturbed;
    VDGModifier other;
    const Operations plan = operationsOf([&] { undisturbed.add(type, other); });
    ASSERT_EQ(undisturbed.attributes(), 1u);
    const auto creation = std::find(plan.begin(), plan.end(), "VFnCompoundAttribute::create");
    for (std::size_t nth = 1; nth <= plan.size() && !HasFailure(); ++nth) {
        SCOPED_TRACE(testing::Message() << nth << ", " << plan[nth - 1]);
        const bool isOfModifier = plan[nth - 1].find("VDGModifier::") == 0;
        const bool isCreation = nth == static_cast<std::size_t>(creation - plan.begin()) + 1;
        const bool isNotHandedOver = plan[nth - 1] == "VDGModifier::addAttribute";
        const std::string expected = isNotHandedOver ? "Fail to add attribute "
                                     : isCreation    ? "Fail to create attribute "
                                                  : "Fail to modify the DG while adding attribute ";
        const AllocationCount count;
        {
            const Edit edit;
            VDGModifier modifier;
            const ShownErrors errors;
            bool isAdded;
            {
                const CallFault fault(nth, {}, inTurn(kFailures, nth));
                isAdded = edit.add(type, modifier);
                EXPECT_EQ(std::count(fault.operations().begin(), fault.operations().end(),
                                     "VDGModifier::doIt"),
                          isCreation || isNotHandedOver ? 0 : 1);
            }
            EXPECT_FALSE(isAdded && (isOfModifier || isCreation));
            EXPECT_EQ(edit.attributes(), isAdded ? 1u : 0u);
            EXPECT_EQ(errors.messages(),
                      isAdded ? Messages{} : Messages{expected + kPort.c_str() + " on node rig."});
            // A refused modifier keeps what it was given: nothing, or the port.
            if (isOfModifier) {
                EXPECT_FALSE(modifier.doIt().error());
                EXPECT_EQ(edit.attributes(), isNotHandedOver ? 0u : 1u);
            }
            const Edit fresh;
            const Edit& next = edit.attributes() == 0 ? edit : fresh;
            EXPECT_TRUE(next.add(type, other));
            EXPECT_EQ(next.tree(), undisturbed.tree());
        }
        EXPECT_EQ(count.outstanding(), 0);
    }
}

using PortFaultsDeathTest = PortFaults;
INSTANTIATE_TEST_SUITE_P(Carried, PortFaultsDeathTest, testing::ValuesIn(carriedTypes()),
                         nameOfTest);

TEST_P(PortFaultsDeathTest, ExceptionsAndFailedAllocationsEndTheProcess) {
    const Edit edit;
    VDGModifier modifier;
    expectTermination([&] { edit.add(type, modifier); });
}

// Where the message is made and shown, no exception may pass either, and a failed call leaves the
// node as it is.
TEST(RefusedPortFaultsDeathTest, ExceptionsAndFailedAllocationsEndTheProcess) {
    const Edit edit;
    const Pelmor::String taken("taken");
    const Pelmor::Library library;
    VDGModifier modifier;
    ASSERT_TRUE(edit.add(library.getType("Rigging::Module::Pins"), modifier, taken));
    for (const char* name : {"array<array<Rigging::Module::Pins>>", "Rigging::Module::Pins",
                             "double", "array<Math::double4x4>"}) {
        SCOPED_TRACE(name);
        const Pelmor::Type type = library.getType(name);
        const auto add = [&] { edit.add(type, modifier, taken); };
        expectTermination(add);
        const ShownErrors errors;
        const auto calls = operationsOf(add).size();
        EXPECT_EQ(errors.messages().size(), 1u);
        for (std::size_t nth = 1; nth <= calls; ++nth) {
            const CallFault fault(nth, {}, inTurn(kFailures, nth));
            add();
            EXPECT_EQ(edit.attributes(), 1u) << nth;
        }
    }
}

}  // namespace
