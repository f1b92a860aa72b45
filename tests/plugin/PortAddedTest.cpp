#include "tests/plugin/EditedNode.h"
#include "tests/support/CallRecorder.h"

#include <OpenVornik/VFnNumericAttribute.h>

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using TestSupport::CallRecorder;
using Lines = CallRecorder::Lines;

using PortAdded = EditedNode;

TEST_F(PortAdded, GivesAnInputPortAWritableAndKeyableCompound) {
    EXPECT_TRUE(add("port", "Rigging::Module::Inputs", PortDirection::Input));
    EXPECT_EQ(attributeCount(), 1u);
    EXPECT_EQ(tree("port").front(), "port: compound -wk-u");
    EXPECT_EQ(errors.messages(), Messages());
}

TEST_F(PortAdded, GivesAnyOtherPortAReadableCompound) {
    for (const int direction : {0, 2, 3, -1, 256, 257, 0x7fffffff}) {
        const std::string name = "port" + std::to_string(direction);
        EXPECT_TRUE(
            add(name.c_str(), "Rigging::Module::Inputs", static_cast<PortDirection>(direction)));
        EXPECT_EQ(tree(name.c_str()).front(), name + ": compound r---u");
    }
}

TEST_F(PortAdded, GivesAnArrayPortAnArrayCompound) {
    EXPECT_TRUE(add("port", "array<Rigging::Module::Outputs>", PortDirection::Output));
    EXPECT_EQ(tree("port").front(), "port: compound r--au");
}

TEST_F(PortAdded, GivesEachOfTheFourteenTypesItsAttribute) {
    for (const char* record :
         {"Core::Transform::Transform", "Rigging::Module::NamedTransforms", "Rigging::Module::Pins",
          "Rigging::Module::InputsJoints", "Rigging::Module::InputsControls",
          "Rigging::Module::Inputs", "Rigging::Module::Outputs"}) {
        const std::string array = std::string("array<") + record + ">";
        const std::string name = "port" + std::to_string(attributeCount());
        EXPECT_TRUE(add(name.c_str(), record)) << record;
        EXPECT_TRUE(add((name + "s").c_str(), array.c_str())) << array;
    }
    EXPECT_EQ(attributeCount(), 14u);
    EXPECT_EQ(errors.messages(), Messages());
}

TEST_F(PortAdded, GivesAnEnumPortOneFieldPerEnumerator) {
    const Pelmor::Type mode = library.defineEnum("Rigging::Mode", {{"on", 1}, {"off", 70000}});
    EXPECT_TRUE(add("mode", mode));
    EXPECT_TRUE(add("modes", Pelmor::Library::arrayOf(mode), PortDirection::Output));
    EXPECT_EQ(tree("mode"), (Lines{"mode: enum of 0 -wk-u", "  on = 1", "  off = 4464"}));
    EXPECT_EQ(tree("modes"), (Lines{"modes: enum of 0 r--au", "  on = 1", "  off = 4464"}));
}

TEST_F(PortAdded, CallsTheHostInOrder) {
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

TEST_F(PortAdded, CarriesOutWhatTheModifierHasQueuedBefore) {
    const VObject number =
        VFnNumericAttribute().create("queued", "queued", VFnNumericData::kDouble);
    modifier.addAttribute(node, number);
    EXPECT_TRUE(add("port", "Rigging::Module::Pins"));
    EXPECT_EQ(attribute("queued"), number);
    EXPECT_EQ(attributeCount(), 2u);
}

TEST_F(PortAdded, LooksAtNothingElseThatTheFrameworkPasses) {
    context.graph = this;
    context.edit = &context;
    const Pelmor::Type type = library.getType("Rigging::Module::Pins");
    EXPECT_TRUE(translation->portAdded("port", PortDirection::Input, type, 0xffffffffu, 0xffffffffu,
                                       &context));
    EXPECT_EQ(tree("port").front(), "port: compound -wk-u");
    EXPECT_EQ(context.graph, this);
    EXPECT_EQ(context.edit, &context);
    EXPECT_EQ(context.node, node);
    EXPECT_EQ(context.modifier, &modifier);
}

TEST_F(PortAdded, DoesNotCompareTheNamesOfChildren) {
    EXPECT_TRUE(add("names", "Rigging::Module::Pins"));
    EXPECT_TRUE(add("pins", "Rigging::Module::Pins"));
    EXPECT_TRUE(add("matrices", "Rigging::Module::Pins"));
    EXPECT_EQ(attributeCount(), 3u);
    EXPECT_EQ(errors.messages(), Messages());
}

TEST_F(PortAdded, KeepsTheNameOfAPortEvenIfItIsWeights) {
    EXPECT_TRUE(add("weights", "Rigging::Module::Pins"));
    EXPECT_FALSE(attribute("weights").isNull());
}

TEST_F(PortAdded, AddsAnEmptyCompoundForAStructWithoutMembers) {
    EXPECT_TRUE(add("port", library.defineStruct("Rigging::Empty", {})));
    EXPECT_EQ(tree("port"), Lines{"port: compound -wk-u"});
}

}  // namespace
