#include "tests/executor/NumberTranslation.h"

#include <OpenVornik/VFnDependencyNode.h>
#include <Pelmor/Library.h>
#include <TavrikGraph/Executor/GraphNode.h>

#include <string>

#include <gtest/gtest.h>

namespace {

using ExecutorTests::NumberTranslation;
using TavrikGraph::Executor::GraphNode;
using TavrikGraph::Executor::PortDirection;

class GraphNodePorts : public testing::Test {
protected:
    Pelmor::Type m_number = Pelmor::Library().getType("double");
    NumberTranslation m_translation;
    GraphNode m_node{m_translation, "walk", [](const auto&, const auto&) {}};
};

TEST_F(GraphNodePorts, NewNodeHasNoPorts) {
    const VFnDependencyNode hostNode(m_node.hostNode());
    EXPECT_TRUE(hostNode.name() == "walk");
    EXPECT_EQ(hostNode.attributeCount(), 0u);
    EXPECT_TRUE(m_node.ports().empty());
    EXPECT_TRUE(m_translation.calls.empty());
}

TEST_F(GraphNodePorts, AddedPortIsAnAttributeOfTheHostNode) {
    EXPECT_TRUE(m_node.addPort("length", PortDirection::Input, m_number));
    ASSERT_EQ(m_node.ports().size(), 1u);
    const GraphNode::Port& port = m_node.ports()[0];
    EXPECT_TRUE(port.name == "length");
    EXPECT_EQ(port.direction, PortDirection::Input);
    EXPECT_TRUE(port.type.getFullyQualifiedName() == "double");
    EXPECT_EQ(port.plug.attribute(), VFnDependencyNode(m_node.hostNode()).attribute("length"));
    EXPECT_EQ(port.plug.node(), m_node.hostNode());
    EXPECT_FALSE(port.value.hasValue());
    EXPECT_FALSE(port.translated);
}

TEST_F(GraphNodePorts, AddedPortIsShownToTheTranslationWithItsNodeAndPlace) {
    m_node.addPort("length", PortDirection::Input, m_number);
    m_node.addPort("sum", PortDirection::Output, m_number);
    ASSERT_TRUE(m_translation.lastAdded);
    EXPECT_EQ(m_translation.lastAdded->name, "sum");
    EXPECT_EQ(m_translation.lastAdded->direction, PortDirection::Output);
    EXPECT_EQ(m_translation.lastAdded->typeName, "double");
    EXPECT_EQ(m_translation.lastAdded->index, 1u);
    EXPECT_EQ(m_translation.lastAdded->node, m_node.hostNode());
    EXPECT_TRUE(m_translation.lastAdded->hasModifier);
}

TEST_F(GraphNodePorts, PortThatTheTranslationRefusesIsNotAdded) {
    m_translation.refusedPorts = {"length"};
    EXPECT_FALSE(m_node.addPort("length", PortDirection::Input, m_number));
    EXPECT_TRUE(m_node.ports().empty());
    EXPECT_TRUE(m_node.addPort("sum", PortDirection::Output, m_number));
    EXPECT_EQ(m_translation.lastAdded->index, 0u) << "the refused port took no place";
}

TEST_F(GraphNodePorts, PortOfATakenAttributeNameIsNotAdded) {
    EXPECT_TRUE(m_node.addPort("length", PortDirection::Input, m_number));
    EXPECT_FALSE(m_node.addPort("length", PortDirection::Output, m_number));
    EXPECT_EQ(m_node.ports().size(), 1u);
}

TEST_F(GraphNodePorts, PortWithoutAnAttributeIsNotAdded) {
    m_translation.forgottenPorts = {"length"};
    EXPECT_FALSE(m_node.addPort("length", PortDirection::Input, m_number));
    EXPECT_TRUE(m_node.ports().empty());
}

}  // namespace
