// Each reason for which a port gets no attribute, and what the user is told.
#include "tests/plugin/EditedNode.h"
#include "tests/support/CallRecorder.h"

#include <OpenVornik/VFnNumericAttribute.h>

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using TestSupport::CallRecorder;
using Lines = CallRecorder::Lines;

class PortRefused : public EditedNode {
protected:
    VObject addNumber(const char* name) {
        const VObject number = VFnNumericAttribute().create(name, name, VFnNumericData::kDouble);
        VDGModifier own;
        own.addAttribute(node, number);
        own.doIt();
        return number;
    }
};

TEST_F(PortRefused, WhereTheTypeIsAnArrayOfArrays) {
    EXPECT_FALSE(add("port", "array<array<Rigging::Module::Pins>>"));
    EXPECT_FALSE(add("port", "array<array<array<Rigging::Module::Pins>>>"));
    EXPECT_FALSE(add("port", "array<array<double>>", PortDirection::Output));
    EXPECT_EQ(errors.messages(),
              (Messages{"Multi dimension array of type Rigging::Module::Pins is not supported.",
                        "Multi dimension array of type Rigging::Module::Pins is not supported.",
                        "Multi dimension array of type double is not supported."}));
    EXPECT_EQ(attributeCount(), 0u);
}

TEST_F(PortRefused, ForAnArrayOfArraysEvenWhereTheNameIsTaken) {
    addNumber("port");
    EXPECT_FALSE(add("port", "array<array<Rigging::Module::Pins>>"));
    EXPECT_EQ(errors.messages(),
              Messages{"Multi dimension array of type Rigging::Module::Pins is not supported."});
}

TEST_F(PortRefused, ForAnArrayOfArraysWithoutALookAtTheNode) {
    CallRecorder calls;
    EXPECT_FALSE(add("port", "array<array<Rigging::Module::Pins>>"));
    EXPECT_EQ(calls.take(),
              (Lines{"VString::format Multi dimension array of type ^1s is not supported., "
                     "Rigging::Module::Pins",
                     "VGlobal::displayError Multi dimension array of type Rigging::Module::Pins is "
                     "not supported."}));
}

TEST_F(PortRefused, WhereAPortHasTheName) {
    EXPECT_TRUE(add("port", "Rigging::Module::Pins"));
    const VObject before = attribute("port");
    EXPECT_FALSE(add("port", "Rigging::Module::Outputs", PortDirection::Output));
    EXPECT_EQ(errors.messages(),
              Messages{"A port with the name port already exists on the node rig."});
    EXPECT_EQ(attributeCount(), 1u);
    EXPECT_EQ(attribute("port"), before);
}

TEST_F(PortRefused, WhereAnAttributeThatNoPortMadeHasTheName) {
    const VObject number = addNumber("visibility");
    EXPECT_FALSE(add("visibility", "Rigging::Module::Pins"));
    EXPECT_EQ(errors.messages(),
              Messages{"A port with the name visibility already exists on the node rig."});
    EXPECT_EQ(attributeCount(), 1u);
    EXPECT_EQ(attribute("visibility"), number);
}

TEST_F(PortRefused, ForItsNameBeforeItsTypeIsLookedAt) {
    addNumber("port");
    EXPECT_FALSE(add("port", "double"));
    EXPECT_EQ(errors.messages(),
              Messages{"A port with the name port already exists on the node rig."});
}

TEST_F(PortRefused, ForItsNameBeforeAnythingIsMade) {
    addNumber("port");
    CallRecorder calls;
    EXPECT_FALSE(add("port", "Rigging::Module::Pins"));
    EXPECT_EQ(calls.take(),
              (Lines{"VFnDependencyNode::VFnDependencyNode rig",
                     "VFnDependencyNode::attribute rig port", "VFnDependencyNode::name rig",
                     "VString::format A port with the name ^1s already exists on the node ^2s., "
                     "port, rig",
                     "VGlobal::displayError A port with the name port already exists on the node "
                     "rig."}));
}

TEST_F(PortRefused, WhereTheTypeIsNeitherAStructNorAnEnum) {
    for (const char* type : {"double", "string", "Math::double4x4", "Object", "bool", "int"}) {
        EXPECT_FALSE(add("port", type)) << type;
        EXPECT_FALSE(add("port", (std::string("array<") + type + ">").c_str())) << type;
    }
    EXPECT_EQ(errors.messages(), Messages(12, "Fail to create attribute port on node rig."));
    EXPECT_EQ(attributeCount(), 0u);
}

TEST_F(PortRefused, ForItsTypeBeforeTheModifierIsAsked) {
    CallRecorder calls;
    EXPECT_FALSE(add("port", "double"));
    EXPECT_EQ(calls.take(),
              (Lines{"VFnDependencyNode::VFnDependencyNode rig",
                     "VFnDependencyNode::attribute rig port", "VFnDependencyNode::name rig",
                     "VString::format Fail to create attribute ^1s on node ^2s., port, rig",
                     "VGlobal::displayError Fail to create attribute port on node rig."}));
}

TEST_F(PortRefused, WhereTheHostMakesNoAttribute) {
    CallRecorder calls;
    calls.fail("VFnCompoundAttribute::create");
    EXPECT_FALSE(add("port", "Rigging::Module::Pins"));
    EXPECT_EQ(errors.messages(), Messages{"Fail to create attribute port on node rig."});
    EXPECT_EQ(calls.count("VDGModifier::addAttribute"), 0u);
}

TEST_F(PortRefused, WhereTheModifierRefusesTheAttribute) {
    CallRecorder calls;
    calls.fail("VDGModifier::addAttribute");
    EXPECT_FALSE(add("port", "Rigging::Module::Pins"));
    EXPECT_EQ(errors.messages(), Messages{"Fail to add attribute port on node rig."});
    const Lines lines = calls.take();
    ASSERT_GE(lines.size(), 4u);
    EXPECT_EQ(Lines(lines.end() - 4, lines.end()),
              (Lines{"VDGModifier::addAttribute rig port", "VFnDependencyNode::name rig",
                     "VString::format Fail to add attribute ^1s on node ^2s., port, rig",
                     "VGlobal::displayError Fail to add attribute port on node rig."}));
    EXPECT_EQ(attributeCount(), 0u);
    EXPECT_FALSE(modifier.doIt().error());
    EXPECT_EQ(attributeCount(), 0u);
}

TEST_F(PortRefused, ByTheModifierWithoutCarryingOutWhatIsQueued) {
    const VObject queued =
        VFnNumericAttribute().create("queued", "queued", VFnNumericData::kDouble);
    modifier.addAttribute(node, queued);
    {
        CallRecorder calls;
        calls.fail("VDGModifier::addAttribute");
        EXPECT_FALSE(add("port", "Rigging::Module::Pins"));
        EXPECT_EQ(calls.count("VDGModifier::doIt"), 0u);
    }
    EXPECT_EQ(attributeCount(), 0u);
    modifier.doIt();
    EXPECT_EQ(attribute("queued"), queued);
}

TEST_F(PortRefused, WhereTheModifierFails) {
    CallRecorder calls;
    calls.fail("VDGModifier::doIt");
    EXPECT_FALSE(add("port", "Rigging::Module::Pins"));
    EXPECT_EQ(errors.messages(),
              Messages{"Fail to modify the DG while adding attribute port on node rig."});
    EXPECT_EQ(calls.count("VDGModifier::doIt"), 1u);
    const Lines lines = calls.take();
    EXPECT_EQ(Lines(lines.end() - 5, lines.end()),
              (Lines{"VDGModifier::addAttribute rig port", "VDGModifier::doIt",
                     "VFnDependencyNode::name rig",
                     "VString::format Fail to modify the DG while adding attribute ^1s on node "
                     "^2s., port, rig",
                     "VGlobal::displayError Fail to modify the DG while adding attribute port on "
                     "node rig."}));
    EXPECT_EQ(attributeCount(), 0u);
}

TEST_F(PortRefused, ByAFailureOfTheModifierWhichIsLeftAsTheHostLeavesIt) {
    {
        CallRecorder calls;
        calls.fail("VDGModifier::doIt");
        EXPECT_FALSE(add("port", "Rigging::Module::Pins"));
    }
    EXPECT_FALSE(modifier.doIt().error());
    EXPECT_EQ(attributeCount(), 1u);
}

TEST_F(PortRefused, WhereAnotherQueuedOperationFails) {
    const VObject number = addNumber("taken");
    const VObject clash = VFnNumericAttribute().create("taken", "taken", VFnNumericData::kDouble);
    modifier.addAttribute(node, clash);
    EXPECT_FALSE(add("port", "Rigging::Module::Pins"));
    EXPECT_EQ(errors.messages(),
              Messages{"Fail to modify the DG while adding attribute port on node rig."});
    EXPECT_EQ(attributeCount(), 1u);
    EXPECT_EQ(attribute("taken"), number);
}

TEST_F(PortRefused, ShowsItsMessageWhateverFormatAnswers) {
    CallRecorder calls;
    calls.fail("VString::format");
    EXPECT_FALSE(add("port", "double"));
    EXPECT_EQ(errors.messages(), Messages{""});
}

TEST_F(PortRefused, OnceMoreWhereTheReasonIsStillThere) {
    EXPECT_FALSE(add("port", "double"));
    EXPECT_FALSE(add("port", "double"));
    EXPECT_TRUE(add("port", "Rigging::Module::Pins"));
    EXPECT_EQ(errors.messages().size(), 2u);
}

class ThrowingNode : public OpenVornik::Testing::CallObserver {
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        if (call.operation == "VFnDependencyNode::attribute")
            throw std::runtime_error("thrown by the host");
        return VStatus::kSuccess;
    }
};

using PortRefusedDeathTest = PortRefused;

TEST_F(PortRefusedDeathTest, EndsTheProcessWhereTheHostThrows) {
    EXPECT_DEATH(
        {
            const ThrowingNode host;
            add("port", "Rigging::Module::Pins");
        },
        "terminate called");
}

}  // namespace
