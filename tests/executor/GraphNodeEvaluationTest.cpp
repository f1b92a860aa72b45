#include "tests/executor/NumberTranslation.h"

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <Pelmor/Library.h>
#include <TavrikGraph/Executor/GraphNode.h>

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using ExecutorTests::NumberTranslation;
using Pelmor::AnyValue;
using TavrikGraph::Executor::GraphNode;
using TavrikGraph::Executor::PortDirection;
using Calls = std::vector<std::string>;
using Inputs = std::vector<const AnyValue*>;
using Outputs = std::vector<AnyValue*>;

VPlug plugOf(const VObject& node, const char* port) {
    return VFnDependencyNode(node).findPlug(port);
}

void setInput(const GraphNode& node, const char* port, double value) {
    VDataBlock data = VFnDependencyNode(node.hostNode()).dataBlock();
    VPlug plug = plugOf(node.hostNode(), port);
    data.outputValue(plug).setDouble(value);
    data.setDirty(plug.attribute());
}

// As the host does when somebody asks for the value of an attribute.
double pull(const VObject& node, const char* port) {
    return VFnDependencyNode(node).dataBlock().inputValue(plugOf(node, port)).asDouble();
}

// What is there, with nothing evaluated for it.
double stored(const GraphNode& node, const char* port) {
    VPlug plug = plugOf(node.hostNode(), port);
    return VFnDependencyNode(node.hostNode()).dataBlock().outputValue(plug).asDouble();
}

// Graph nodes that add "a" and "b" up in "sum" and give the negative of that in "negative"; the
// translation's list of calls says when the graph runs.
class GraphNodeEvaluation : public testing::Test {
protected:
    std::unique_ptr<GraphNode> adder(const char* name) {
        auto node = std::make_unique<GraphNode>(
            m_translation, name,
            [this](const Inputs& inputs, const Outputs& outputs) { add(inputs, outputs); });
        const Pelmor::Type number = Pelmor::Library().getType("double");
        node->addPort("sum", PortDirection::Output, number);
        node->addPort("a", PortDirection::Input, number);
        node->addPort("negative", PortDirection::Output, number);
        node->addPort("b", PortDirection::Input, number);
        return node;
    }

    void add(const Inputs& inputs, const Outputs& outputs) {
        m_translation.calls.push_back("graph");
        m_outputsWereEmpty = true;
        for (const AnyValue* output : outputs)
            if (output->hasValue()) m_outputsWereEmpty = false;
        double sum = 0;
        for (const AnyValue* input : inputs)
            if (const double* number = input->getIf<double>()) sum += *number;
        if (m_leavesOutputsEmpty) return;
        *outputs[0] = AnyValue::holding(sum);
        *outputs[1] = AnyValue::holding(-sum);
    }

    int graphRuns() const {
        int runs = 0;
        for (const std::string& call : m_translation.calls) runs += call == "graph";
        return runs;
    }

    NumberTranslation m_translation;
    bool m_outputsWereEmpty = false;
    bool m_leavesOutputsEmpty = false;
    std::unique_ptr<GraphNode> m_node = adder("adder");
};

TEST_F(GraphNodeEvaluation,
       EvaluationReadsTheInputsThenRunsTheGraphThenWritesTheOutputsInPortOrder) {
    EXPECT_TRUE(m_node->evaluate());
    EXPECT_EQ(m_translation.calls,
              (Calls{"read a double", "read b double", "graph", "write sum", "write negative"}));
}

TEST_F(GraphNodeEvaluation, EvaluationCarriesValuesFromInputsToOutputs) {
    setInput(*m_node, "a", 2);
    setInput(*m_node, "b", 3.5);
    EXPECT_TRUE(m_node->evaluate());
    EXPECT_EQ(stored(*m_node, "sum"), 5.5);
    EXPECT_EQ(stored(*m_node, "negative"), -5.5);
}

TEST_F(GraphNodeEvaluation, PortsShowTheCarriedValues) {
    setInput(*m_node, "a", 2);
    m_node->evaluate();
    for (const GraphNode::Port& port : m_node->ports()) EXPECT_TRUE(port.translated);
    EXPECT_EQ(*m_node->ports()[0].value.getIf<double>(), 2);
    EXPECT_EQ(*m_node->ports()[1].value.getIf<double>(), 2);
    EXPECT_EQ(*m_node->ports()[2].value.getIf<double>(), -2);
    EXPECT_EQ(*m_node->ports()[3].value.getIf<double>(), 0);
}

TEST_F(GraphNodeEvaluation, GraphGetsEmptyOutputsEachTime) {
    m_node->evaluate();
    EXPECT_TRUE(m_outputsWereEmpty);
    ASSERT_TRUE(m_node->ports()[0].value.hasValue());
    m_node->evaluate();
    EXPECT_TRUE(m_outputsWereEmpty);
    m_leavesOutputsEmpty = true;
    m_node->evaluate();
    EXPECT_FALSE(m_node->ports()[0].value.hasValue());
}

TEST_F(GraphNodeEvaluation, UntranslatedInputIsReportedAndTheOthersAreCarried) {
    setInput(*m_node, "a", 2);
    setInput(*m_node, "b", 3);
    m_translation.failingPorts = {"b"};
    EXPECT_FALSE(m_node->evaluate());
    EXPECT_TRUE(m_node->ports()[1].translated);
    EXPECT_FALSE(m_node->ports()[3].translated);
    EXPECT_EQ(stored(*m_node, "sum"), 2);

    m_translation.failingPorts.clear();
    EXPECT_TRUE(m_node->evaluate());
    EXPECT_TRUE(m_node->ports()[3].translated);
    EXPECT_EQ(stored(*m_node, "sum"), 5);
}

TEST_F(GraphNodeEvaluation, UntranslatedOutputIsReportedAndTheOthersAreCarried) {
    setInput(*m_node, "a", 2);
    m_translation.failingPorts = {"sum"};
    EXPECT_FALSE(m_node->evaluate());
    EXPECT_FALSE(m_node->ports()[0].translated);
    EXPECT_TRUE(m_node->ports()[2].translated);
    EXPECT_EQ(stored(*m_node, "negative"), -2);
}

TEST_F(GraphNodeEvaluation, OutputThatTheGraphLeavesEmptyIsReported) {
    m_leavesOutputsEmpty = true;
    EXPECT_FALSE(m_node->evaluate());
    EXPECT_FALSE(m_node->ports()[0].translated);
    EXPECT_FALSE(m_node->ports()[2].translated);
    EXPECT_TRUE(m_node->ports()[1].translated);
}

TEST_F(GraphNodeEvaluation, NodeWithoutPortsRunsTheGraph) {
    bool ran = false;
    GraphNode node(m_translation, "empty", [&](const Inputs& inputs, const Outputs& outputs) {
        ran = inputs.empty() && outputs.empty();
    });
    EXPECT_TRUE(node.evaluate());
    EXPECT_TRUE(ran);
}

TEST_F(GraphNodeEvaluation, HostAskingForDirtyOutputsEvaluatesOnce) {
    setInput(*m_node, "a", 2);
    EXPECT_EQ(graphRuns(), 0);
    EXPECT_EQ(pull(m_node->hostNode(), "sum"), 2);
    EXPECT_EQ(graphRuns(), 1);
    EXPECT_EQ(pull(m_node->hostNode(), "sum"), 2);
    EXPECT_EQ(pull(m_node->hostNode(), "negative"), -2);
    EXPECT_EQ(graphRuns(), 1) << "both outputs came with the first";
}

TEST_F(GraphNodeEvaluation, DirtyInputMakesTheHostEvaluateAgain) {
    pull(m_node->hostNode(), "sum");
    setInput(*m_node, "b", 7);
    EXPECT_EQ(graphRuns(), 1);
    EXPECT_EQ(pull(m_node->hostNode(), "negative"), -7);
    EXPECT_EQ(graphRuns(), 2);
}

TEST_F(GraphNodeEvaluation, DestroyedGraphNodeEvaluatesNoMore) {
    const VObject hostNode = m_node->hostNode();
    setInput(*m_node, "a", 2);
    pull(hostNode, "sum");
    setInput(*m_node, "a", 3);
    m_node.reset();
    EXPECT_EQ(pull(hostNode, "sum"), 2);
    EXPECT_EQ(graphRuns(), 1);
}

class ConnectedGraphNodes : public GraphNodeEvaluation {
protected:
    void SetUp() override {
        VDGModifier modifier;
        ASSERT_TRUE(modifier.connect(plugOf(m_node->hostNode(), "sum"),
                                     plugOf(m_downstream->hostNode(), "a")));
        ASSERT_TRUE(modifier.doIt());
        m_translation.calls.clear();
    }

    std::unique_ptr<GraphNode> m_downstream = adder("downstream");
};

TEST_F(ConnectedGraphNodes, DownstreamValueAskedForEvaluatesUpstreamFirst) {
    setInput(*m_node, "a", 2);
    setInput(*m_node, "b", 3);
    setInput(*m_downstream, "b", 10);
    EXPECT_EQ(pull(m_downstream->hostNode(), "sum"), 15);
    EXPECT_EQ(m_translation.calls,
              (Calls{"read a double",                                                           //
                     "read a double", "read b double", "graph", "write sum", "write negative",  //
                     "read b double", "graph", "write sum", "write negative"}));
}

TEST_F(ConnectedGraphNodes, DownstreamEvaluationEvaluatesUpstream) {
    setInput(*m_node, "a", 2);
    EXPECT_TRUE(m_downstream->evaluate());
    EXPECT_EQ(stored(*m_downstream, "sum"), 2);
    EXPECT_EQ(graphRuns(), 2);
}

TEST_F(ConnectedGraphNodes, UpstreamChangeIsCarriedAllTheWay) {
    setInput(*m_node, "a", 2);
    EXPECT_EQ(pull(m_downstream->hostNode(), "sum"), 2);
    setInput(*m_node, "a", 4);
    EXPECT_EQ(pull(m_downstream->hostNode(), "sum"), 4);
    EXPECT_EQ(graphRuns(), 4);
}

TEST_F(ConnectedGraphNodes, DownstreamChangeLeavesUpstreamAlone) {
    pull(m_downstream->hostNode(), "sum");
    m_translation.calls.clear();
    setInput(*m_downstream, "b", 1);
    EXPECT_EQ(pull(m_downstream->hostNode(), "sum"), 1);
    EXPECT_EQ(graphRuns(), 1);
}

}  // namespace
