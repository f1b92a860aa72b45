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
constexpr const char* kEachKind = "Rigging::EachKind";

// A node that is being edited, each time with a new modifier or with the given one.
struct Edit {
    bool add(const Pelmor::Type& type, const Pelmor::String& name = kPort) const {
        VDGModifier ownModifier;
        return add(type, ownModifier, name);
    }
    bool add(const Pelmor::Type& type, VDGModifier& given,
             const Pelmor::String& name = kPort) const {
        TavrikGraph::Executor::NodeEditContext context{nullptr, node, nullptr, &given};
        return translation.portAdded(name, PortDirection::Input, type, 0, 0, &context);
    }

    unsigned attributes() const { return VFnDependencyNode(node).attributeCount(); }
    AttributeLines tree() const { return treeOf(VFnDependencyNode(node).attribute(kPort.c_str())); }

    const Rigging::Module::VornikRiggingTranslation translation;
    const VObject node = VFnDependencyNode().create("rig");
};

std::vector<std::string> portTypes() {
    std::vector<std::string> names = carriedTypes();
    names.push_back(kEachKind);
    return names;
}

class PortFaults : public testing::TestWithParam<std::string> {
protected:
    PortFaults() {
        const Pelmor::Type mode = library.defineEnum("Rigging::Mode", {{"off", 0}, {"on", 1}});
        const Pelmor::Type part =
            library.defineStruct("Rigging::Part", {{"names", library.getType("string")}});
        library.defineStruct(kEachKind, {{"names", library.getType("array<string>")},
                                         {"root", library.getType("Math::double4x4")},
                                         {"weights", library.getType("double")},
                                         {"part", part},
                                         {"mode", mode},
                                         {"object", library.getType("Object")},
                                         {"flag", library.getType("bool")},
                                         {"count", library.getType("int")}});
    }

    Pelmor::Type type() const { return library.getType(GetParam().c_str()); }

    Pelmor::Library library;
};
INSTANTIATE_TEST_SUITE_P(Types, PortFaults, testing::ValuesIn(portTypes()), nameOfTest);

std::string messageFor(const Operations& plan, std::size_t nth) {
    const std::string_view operation = plan[nth - 1];
    const auto create = std::find_if(plan.begin(), plan.end(), [](std::string_view call) {
        return call == "VFnCompoundAttribute::create";
    });
    std::string message = "Fail to modify the DG while adding attribute ";
    if (operation == "VDGModifier::addAttribute") message = "Fail to add attribute ";
    if (nth == static_cast<std::size_t>(create - plan.begin()) + 1)
        message = "Fail to create attribute ";
    return message + kPort.c_str() + " on node rig.";
}

TEST_P(PortFaults, FailedCallIsRefusedWithOneMessageOrGoneOnAfter) {
    const Edit undisturbed;
    const Operations plan = operationsOf([&] { undisturbed.add(type()); });
    ASSERT_EQ(undisturbed.attributes(), 1u);
    for (std::size_t nth = 1; nth <= plan.size() && !HasFailure(); ++nth) {
        SCOPED_TRACE(testing::Message() << nth << ", " << plan[nth - 1]);
        const AllocationCount count;
        {
            const Edit edit;
            VDGModifier modifier;
            const ShownErrors errors;
            bool isAdded;
            Operations operations;
            {
                const CallFault fault(nth, inTurn(kFailures, nth));
                isAdded = edit.add(type(), modifier);
                operations = fault.operations();
            }
            const bool isChecked = plan[nth - 1].find("VDGModifier::") == 0;
            EXPECT_FALSE(isAdded && isChecked);
            EXPECT_EQ(errors.messages(), isAdded ? Messages{} : Messages{messageFor(plan, nth)});
            EXPECT_EQ(edit.attributes(), isAdded ? 1u : 0u);
            const bool isModified = isAdded || errors.messages().front().find("Fail to mod") == 0;
            EXPECT_EQ(std::count(operations.begin(), operations.end(), "VDGModifier::doIt"),
                      isModified ? 1 : 0);
            // A refused modifier keeps what it was given: nothing, or the port.
            if (isChecked) {
                EXPECT_FALSE(modifier.doIt().error());
                EXPECT_EQ(edit.attributes(), plan[nth - 1] == "VDGModifier::doIt" ? 1u : 0u);
            }
            const Edit fresh;
            const Edit& next = edit.attributes() == 0 ? edit : fresh;
            EXPECT_TRUE(next.add(type()));
            EXPECT_EQ(next.tree(), undisturbed.tree());
        }
        EXPECT_EQ(count.outstanding(), 0);
    }
}

// An exception may not pass, whatever it is and wherever it comes from.
void expectTermination(const std::function<void()>& operation) {
    const Endings whereCallsThrow = endingsOf([&](std::uint64_t nth) {
        const CallFault fault(nth, nth % 2 == 0 ? inTurn(kRuntimeErrors, nth / 2)
                                                : inTurn(kOtherExceptions, nth / 2));
        operation();
        return fault.hasHappened();
    });
    const Endings withoutMemory = endingsWithoutMemory(operation);
    for (const Endings& endings : {whereCallsThrow, withoutMemory}) {
        EXPECT_GT(endings.size(), 0u);
        EXPECT_EQ(endings, times(endings.size(), Ending::kTerminates));
    }
}

using PortFaultsDeathTest = PortFaults;
INSTANTIATE_TEST_SUITE_P(Types, PortFaultsDeathTest, testing::ValuesIn(portTypes()), nameOfTest);

TEST_P(PortFaultsDeathTest, ExceptionsAndFailedAllocationsEndTheProcess) {
    const Pelmor::Type portType = type();
    const Edit edit;
    VDGModifier modifier;
    expectTermination([&] { edit.add(portType, modifier); });
}

class RefusedPortFaultsDeathTest : public testing::Test {
protected:
    // Adding `port` of `type` is refused with `message`, and whatever goes wrong while it is
    // refused leaves the node as it is.
    void expectRefusal(const char* message, const Pelmor::Type& type) {
        const unsigned before = edit.attributes();
        const auto add = [&] { edit.add(type, modifier, port); };
        expectTermination(add);
        const ShownErrors errors;
        const auto calls = operationsOf(add).size();
        EXPECT_EQ(errors.messages(), Messages{message});
        for (std::size_t nth = 1; nth <= calls; ++nth) {
            const CallFault fault(nth, inTurn(kFailures, nth));
            add();
            EXPECT_EQ(edit.attributes(), before) << nth;
        }
    }

    const Pelmor::Library library;
    const Pelmor::String port{"port"};
    const Pelmor::Type pins = library.getType("Rigging::Module::Pins");
    const Edit edit;
    VDGModifier modifier;
};

TEST_F(RefusedPortFaultsDeathTest, ArrayOfArrays) {
    expectRefusal("Multi dimension array of type Rigging::Module::Pins is not supported.",
                  library.getType("array<array<Rigging::Module::Pins>>"));
}

TEST_F(RefusedPortFaultsDeathTest, TakenName) {
    ASSERT_TRUE(edit.add(pins, port));
    expectRefusal("A port with the name port already exists on the node rig.", pins);
}

TEST_F(RefusedPortFaultsDeathTest, TypeWithoutAnAttribute) {
    expectRefusal("Fail to create attribute port on node rig.", library.getType("double"));
}

TEST_F(RefusedPortFaultsDeathTest, ModifierThatIsNotCarriedOut) {
    ASSERT_TRUE(edit.add(pins, "taken"));
    modifier.addAttribute(edit.node,
                          VFnNumericAttribute().create("taken", "taken", VFnNumericData::kDouble));
    expectTermination([&] { edit.add(pins, modifier, port); });
    const ShownErrors errors;
    EXPECT_FALSE(edit.add(pins, modifier, port));
    EXPECT_EQ(errors.messages(),
              Messages{"Fail to modify the DG while adding attribute port on node rig."});
    EXPECT_EQ(edit.attributes(), 1u);
}

}  // namespace
