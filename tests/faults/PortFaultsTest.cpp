// Each call of the host while a port is added is made to fail, one after the other. What is left of
// the port, and what the user is told, is told by AttributeRules.
#include "tests/faults/AttributeRules.h"
#include "tests/faults/AttributeTables.h"
#include "tests/faults/FailingCall.h"
#include "tests/plugin/Translation.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/ShownErrors.h"

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <Pelmor/Library.h>
#include <TavrikGraph/Executor/NodeEditContext.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace FaultTests;
using TavrikGraph::Executor::PortDirection;
using TestSupport::AllocationCount;
using TestSupport::CallRecorder;
using TestSupport::ShownErrors;
using Messages = ShownErrors::Messages;

// A node, "rig", that is being edited.
struct Edit {
    VObject portAttribute() const { return VFnDependencyNode(node).attribute("port"); }
    AttributeRows portRows() const {
        return portAttribute().isNull() ? AttributeRows{} : rowsOf(portAttribute());
    }

    VObject node = VFnDependencyNode().create("rig");
    VDGModifier modifier;
    TavrikGraph::Executor::NodeEditContext context{nullptr, node, nullptr, &modifier};
};

class PortFaults : public testing::Test {
protected:
    bool add(Edit& edit, const Pelmor::Type& type) const {
        return m_translation->portAdded("port", PortDirection::Input, type, 0, 0, &edit.context);
    }

    void sweep(const Pelmor::Type& type, const AttributeRows& rows) const {
        const PlannedCalls plan = planOfAdding(rows);
        addWithoutFailure(type, rows, plan);
        for (std::size_t failing = 0; failing < plan.size() && !HasFailure(); ++failing) {
            SCOPED_TRACE(std::string(plan[failing].operation) + " at " + plan[failing].place);
            const AllocationCount count;
            addFailing(type, rows, plan, failing);
            EXPECT_EQ(count.outstanding(), 0);
        }
    }

    Pelmor::Library library;

private:
    void addWithoutFailure(const Pelmor::Type& type, const AttributeRows& rows,
                           const PlannedCalls& plan) const {
        Edit edit;
        ShownErrors errors;
        {
            FailingCall none;
            EXPECT_TRUE(add(edit, type));
            ASSERT_EQ(none.operations(), operationsOf(plan));
        }
        EXPECT_EQ(errors.messages(), Messages{});
        EXPECT_EQ(edit.portRows(), rows);
    }

    void addFailing(const Pelmor::Type& type, const AttributeRows& rows, const PlannedCalls& plan,
                    std::size_t failing) const {
        const AdditionResult expected = resultOfAdding(plan, failing, rows);
        Edit edit;
        ShownErrors errors;
        Operations operations;
        {
            FailingCall fault(plan, failing);
            EXPECT_EQ(add(edit, type), expected.message.empty());
            operations = fault.operations();
        }
        EXPECT_EQ(errors.messages(),
                  expected.message.empty() ? Messages{} : Messages{expected.message});
        EXPECT_EQ(operations, expected.operations);
        EXPECT_EQ(edit.portRows(), expected.left);
        if (endsAddition(plan[failing])) {
            // A modifier that refused the attribute has nothing to do; one that failed has it all.
            EXPECT_FALSE(edit.modifier.doIt().error());
            const bool isQueued = plan[failing].operation == "VDGModifier::doIt";
            EXPECT_EQ(edit.portRows(), isQueued ? rows : AttributeRows{});
        }
    }

    PluginTests::Translation m_translation = PluginTests::newTranslation();
};

TEST_F(PortFaults, OfAnArrayOfInputs) {
    sweep(library.getType("array<Rigging::Module::Inputs>"), inputsPort());
}

TEST_F(PortFaults, OfAnArrayOfOutputs) {
    sweep(library.getType("array<Rigging::Module::Outputs>"), outputsPort());
}

TEST_F(PortFaults, OfAStructWithOneMemberOfEachKind) {
    const Pelmor::Type mode = library.defineEnum("Rigging::Mode", {{"off", 0}, {"on", 70000}});
    const Pelmor::Type part = library.defineStruct(
        "Rigging::Part",
        {{"weights", library.getType("double")}, {"names", library.getType("string")}});
    const Pelmor::Type rig =
        library.defineStruct("Rigging::Rig", {{"names", library.getType("array<string>")},
                                              {"root", library.getType("Math::double4x4")},
                                              {"part", part},
                                              {"mode", Pelmor::Library::arrayOf(mode)},
                                              {"objects", library.getType("array<Object>")},
                                              {"weights", library.getType("bool")},
                                              {"count", library.getType("int")}});
    sweep(rig, rigPort());
}

struct RefusalCase {
    const char* operation;
    Messages shown;
};

// Refuses a port while a further call fails, on the way to the message or in making it.
class RefusalFaults : public PortFaults {
protected:
    // `lookedAt` is the call whose failure is the reason, or empty.
    void expectShown(const char* type, const char* lookedAt, bool isTaken,
                     const std::vector<RefusalCase>& cases) const {
        for (const RefusalCase& failing : cases) {
            SCOPED_TRACE(failing.operation);
            Edit edit;
            if (isTaken) addNumber(edit);
            const VObject before = edit.portAttribute();
            ShownErrors errors;
            {
                CallRecorder calls;
                calls.fail(lookedAt);
                calls.fail(failing.operation);
                EXPECT_FALSE(add(edit, library.getType(type)));
            }
            EXPECT_EQ(errors.messages(), failing.shown);
            EXPECT_EQ(edit.portAttribute(), before);
        }
    }

private:
    static void addNumber(Edit& edit) {
        const VObject number =
            VFnNumericAttribute().create("port", "port", VFnNumericData::kDouble);
        edit.modifier.addAttribute(edit.node, number);
        edit.modifier.doIt();
    }
};

TEST_F(RefusalFaults, OfAnArrayOfArrays) {
    expectShown("array<array<double>>", "", false,
                {{"VString::format", {""}}, {"VGlobal::displayError", {}}});
}

// A clash that is not seen at first is seen by the modifier.
TEST_F(RefusalFaults, OfATakenName) {
    expectShown(
        "Rigging::Module::Pins", "", true,
        {{"VFnDependencyNode::VFnDependencyNode",
          {"Fail to modify the DG while adding attribute port on node ."}},
         {"VFnDependencyNode::attribute",
          {"Fail to modify the DG while adding attribute port on node rig."}},
         {"VFnDependencyNode::name", {"A port with the name port already exists on the node ."}},
         {"VString::format", {""}},
         {"VGlobal::displayError", {}}});
}

TEST_F(RefusalFaults, OfATypeWithoutAttribute) {
    expectShown(
        "double", "", false,
        {{"VFnDependencyNode::VFnDependencyNode", {"Fail to create attribute port on node ."}},
         {"VFnDependencyNode::attribute", {"Fail to create attribute port on node rig."}},
         {"VFnDependencyNode::name", {"Fail to create attribute port on node ."}},
         {"VString::format", {""}},
         {"VGlobal::displayError", {}}});
}

TEST_F(RefusalFaults, ByTheModifier) {
    expectShown("Rigging::Module::Pins", "VDGModifier::addAttribute", false,
                {{"VFnDependencyNode::VFnDependencyNode", {"Fail to add attribute port on node ."}},
                 {"VFnDependencyNode::name", {"Fail to add attribute port on node ."}},
                 {"VString::format", {""}},
                 {"VGlobal::displayError", {}}});
}

TEST_F(RefusalFaults, ByTheModifiersWork) {
    expectShown("Rigging::Module::Pins", "VDGModifier::doIt", false,
                {{"VFnDependencyNode::VFnDependencyNode",
                  {"Fail to modify the DG while adding attribute port on node ."}},
                 {"VFnDependencyNode::name",
                  {"Fail to modify the DG while adding attribute port on node ."}},
                 {"VString::format", {""}},
                 {"VGlobal::displayError", {}}});
}

}  // namespace
