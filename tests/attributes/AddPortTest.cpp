// When a port gets an attribute, and what the user is told where it gets none.
#include "tests/support/AttributeTree.h"
#include "tests/support/CallRecorder.h"
#include "tests/support/HostAttributes.h"
#include "tests/support/ShownErrors.h"

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <Pelmor/Library.h>
#include <Tolvane/attributes/AddPort.h>

#include <string>

#include <gtest/gtest.h>

namespace {

using TestSupport::CallRecorder;
using Lines = CallRecorder::Lines;
using Messages = TestSupport::ShownErrors::Messages;

class AddPort : public testing::Test {
protected:
    bool add(const std::string& name, const Pelmor::Type& type, bool isInput = true) {
        return Tolvane::addPort(name.c_str(), isInput, type, node, modifier);
    }
    bool add(const std::string& name, const char* type, bool isInput = true) {
        return add(name, library.getType(type), isInput);
    }
    VObject addNumber(const char* name) {
        const VObject number = TestSupport::doubleAttribute(name);
        VDGModifier own;
        own.addAttribute(node, number);
        own.doIt();
        return number;
    }

    unsigned attributeCount() const { return VFnDependencyNode(node).attributeCount(); }
    VObject attribute(const std::string& name) const {
        return VFnDependencyNode(node).attribute(name.c_str());
    }
    Lines tree(const char* name) const { return TestSupport::treeOf(attribute(name)); }

    Pelmor::Library library;
    VObject node = VFnDependencyNode().create("rig");
    VDGModifier modifier;
    TestSupport::ShownErrors errors;
};

TEST_F(AddPort, GivesTheNodeTheAttributeOfTheType) {
    EXPECT_TRUE(add("port", "Rigging::Module::Pins"));
    EXPECT_TRUE(add("ports", "array<Rigging::Module::Pins>", false));
    EXPECT_EQ(tree("port"), (Lines{"port: compound -wk-u", "  names: typed 4 rw-a-",
                                   "  matrices: matrix 1 rw-a-"}));
    EXPECT_EQ(tree("ports").front(), "ports: compound r--au");
    EXPECT_EQ(errors.messages(), Messages());
}

TEST_F(AddPort, GivesAnEnumItsFieldsAndAnEmptyStructNone) {
    const Pelmor::Type mode = library.defineEnum("Rigging::Mode", {{"on", 1}, {"off", 70000}});
    EXPECT_TRUE(add("modes", Pelmor::Library::arrayOf(mode), false));
    EXPECT_TRUE(add("empty", library.defineStruct("Rigging::Empty", {})));
    EXPECT_EQ(tree("modes"), (Lines{"modes: enum of 0 r--au", "  on = 1", "  off = 4464"}));
    EXPECT_EQ(tree("empty"), Lines{"empty: compound -wk-u"});
}

TEST_F(AddPort, CallsTheHostInOrder) {
    const Pelmor::Type mode = library.defineEnum("Rigging::Mode", {{"on", 1}});
    CallRecorder calls;
    EXPECT_TRUE(add("mode", mode));
    EXPECT_EQ(
        calls.take(),
        (Lines{"VFnDependencyNode::VFnDependencyNode rig", "VFnDependencyNode::attribute rig mode",
               "VFnEnumAttribute::create mode, mode, 0", "VFnAttribute::setReadable mode false",
               "VFnAttribute::setWritable mode true", "VFnAttribute::setKeyable mode true",
               "VFnAttribute::setArray mode false", "VFnEnumAttribute::addField mode on, 1",
               "VDGModifier::addAttribute rig mode", "VDGModifier::doIt"}));
}

TEST_F(AddPort, KeepsTheNameToTheLastByte) {
    const std::string blankEdged = "  port with blanks\t ";
    for (const std::string& name :
         {std::string(65, 'a'), std::string(300, 'b') + "c", std::string(300, 'b') + "d",
          std::string(5000, 'e'), blankEdged, std::string("port with blanks"),
          std::string("M\xc3\xbcller \xff\x80"), std::string("weights"), std::string("^1s %s")}) {
        EXPECT_TRUE(add(name, "Rigging::Module::Pins")) << name;
        const VFnAttribute added(attribute(name));
        EXPECT_EQ(added.name().asChar(), name);
        EXPECT_EQ(added.shortName().asChar(), name);
    }
    EXPECT_EQ(attributeCount(), 9u);
    EXPECT_EQ(errors.messages(), Messages());
}

TEST_F(AddPort, LeavesItToTheHostToRefuseAnEmptyName) {
    CallRecorder calls;
    EXPECT_FALSE(add("", "Rigging::Module::Pins"));
    EXPECT_EQ(calls.count("VFnCompoundAttribute::create"), 1u);
    EXPECT_EQ(errors.messages(), Messages{"Fail to create attribute  on node rig."});
}

TEST_F(AddPort, ShowsAnOddNameAsItIs) {
    for (const std::string& name :
         {std::string(300, 'b'), std::string(), std::string(" M\xc3\xbcller ")}) {
        EXPECT_FALSE(add(name, "double"));
        EXPECT_EQ(errors.messages().back(), "Fail to create attribute " + name + " on node rig.");
    }
}

TEST_F(AddPort, ComparesTheNameWithTheNodesOwnAttributesAlone) {
    for (const char* name : {"port", "names", "matrices"})
        EXPECT_TRUE(add(name, "Rigging::Module::Pins")) << name;
    EXPECT_TRUE(add("Port", "Rigging::Module::Pins"));
    EXPECT_EQ(attributeCount(), 4u);
    EXPECT_EQ(errors.messages(), Messages());
}

TEST_F(AddPort, RefusesAnArrayOfArraysWithoutALookAtTheNode) {
    addNumber("port");
    CallRecorder calls;
    EXPECT_FALSE(add("port", "array<array<Rigging::Module::Pins>>"));
    EXPECT_EQ(calls.take(),
              (Lines{"VString::format Multi dimension array of type ^1s is not supported., "
                     "Rigging::Module::Pins",
                     "VGlobal::displayError Multi dimension array of type Rigging::Module::Pins is "
                     "not supported."}));
    EXPECT_FALSE(add("other", "array<array<array<Rigging::Module::Pins>>>"));
    EXPECT_FALSE(add("other", "array<array<double>>", false));
    EXPECT_EQ(errors.messages(),
              (Messages{"Multi dimension array of type Rigging::Module::Pins is not supported.",
                        "Multi dimension array of type Rigging::Module::Pins is not supported.",
                        "Multi dimension array of type double is not supported."}));
    EXPECT_EQ(attributeCount(), 1u);
}

// Whoever made the attribute, and whatever the port's type.
TEST_F(AddPort, RefusesATakenNameBeforeAnythingIsMade) {
    const VObject number = addNumber("port");
    CallRecorder calls;
    EXPECT_FALSE(add("port", "double"));
    EXPECT_EQ(calls.take(),
              (Lines{"VFnDependencyNode::VFnDependencyNode rig",
                     "VFnDependencyNode::attribute rig port", "VFnDependencyNode::name rig",
                     "VString::format A port with the name ^1s already exists on the node ^2s., "
                     "port, rig",
                     "VGlobal::displayError A port with the name port already exists on the node "
                     "rig."}));
    EXPECT_EQ(attribute("port"), number);
}

TEST_F(AddPort, RefusesATypeThatIsNeitherAStructNorAnEnum) {
    EXPECT_FALSE(add("port", "array<Math::double4x4>"));
    EXPECT_EQ(errors.messages(), Messages{"Fail to create attribute port on node rig."});
    CallRecorder calls;
    EXPECT_FALSE(add("port", "double"));
    EXPECT_EQ(calls.take(),
              (Lines{"VFnDependencyNode::VFnDependencyNode rig",
                     "VFnDependencyNode::attribute rig port", "VFnDependencyNode::name rig",
                     "VString::format Fail to create attribute ^1s on node ^2s., port, rig",
                     "VGlobal::displayError Fail to create attribute port on node rig."}));
}

TEST_F(AddPort, RefusesAPortForWhichTheHostMakesNoAttribute) {
    CallRecorder calls;
    calls.fail("VFnCompoundAttribute::create");
    EXPECT_FALSE(add("port", "Rigging::Module::Pins"));
    EXPECT_EQ(errors.messages(), Messages{"Fail to create attribute port on node rig."});
    EXPECT_EQ(calls.count("VDGModifier::addAttribute"), 0u);
}

// What is queued is not carried out.
TEST_F(AddPort, RefusesAPortWhoseAttributeTheModifierRefuses) {
    const VObject queued = TestSupport::doubleAttribute("queued");
    modifier.addAttribute(node, queued);
    {
        CallRecorder calls;
        calls.fail("VDGModifier::addAttribute");
        EXPECT_FALSE(add("port", "Rigging::Module::Pins"));
        EXPECT_EQ(calls.count("VDGModifier::doIt"), 0u);
        const Lines lines = calls.take();
        EXPECT_EQ(Lines(lines.end() - 4, lines.end()),
                  (Lines{"VDGModifier::addAttribute rig port", "VFnDependencyNode::name rig",
                         "VString::format Fail to add attribute ^1s on node ^2s., port, rig",
                         "VGlobal::displayError Fail to add attribute port on node rig."}));
    }
    EXPECT_EQ(errors.messages(), Messages{"Fail to add attribute port on node rig."});
    EXPECT_EQ(attributeCount(), 0u);
    EXPECT_FALSE(modifier.doIt().error());
    EXPECT_EQ(attributeCount(), 1u);
    EXPECT_EQ(attribute("queued"), queued);
}

TEST_F(AddPort, RefusesAPortWhereTheModifierFailsAndLeavesItSo) {
    {
        CallRecorder calls;
        calls.fail("VDGModifier::doIt");
        EXPECT_FALSE(add("port", "Rigging::Module::Pins"));
        const Lines lines = calls.take();
        EXPECT_EQ(Lines(lines.end() - 5, lines.end()),
                  (Lines{"VDGModifier::addAttribute rig port", "VDGModifier::doIt",
                         "VFnDependencyNode::name rig",
                         "VString::format Fail to modify the DG while adding attribute ^1s on node "
                         "^2s., port, rig",
                         "VGlobal::displayError Fail to modify the DG while adding attribute port "
                         "on node rig."}));
    }
    EXPECT_EQ(attributeCount(), 0u);
    EXPECT_FALSE(modifier.doIt().error());
    EXPECT_EQ(attributeCount(), 1u);
}

TEST_F(AddPort, ShowsARefusalWhateverFormatAnswers) {
    CallRecorder calls;
    calls.fail("VString::format");
    EXPECT_FALSE(add("port", "double"));
    EXPECT_EQ(errors.messages(), Messages{""});
}

TEST_F(AddPort, ShowsARefusalEachTime) {
    EXPECT_FALSE(add("port", "double"));
    EXPECT_FALSE(add("port", "double"));
    EXPECT_TRUE(add("port", "Rigging::Module::Pins"));
    EXPECT_EQ(errors.messages().size(), 2u);
}

}  // namespace
