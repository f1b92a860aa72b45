#include "tests/executor/NumberTranslation.h"

#include <OpenVornik/Testing/CallObserver.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <Pelmor/Library.h>
#include <TavrikGraph/Executor/GraphNode.h>

#include <memory>

#include <gtest/gtest.h>

namespace {

using TavrikGraph::Executor::GraphNode;
using TavrikGraph::Executor::PortDirection;

class ComputationsRefused : public OpenVornik::Testing::CallObserver {
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        return call.operation == "VFnDependencyNode::setCompute" ? VStatus::kFailure
                                                                 : VStatus::kSuccess;
    }
};

TEST(GraphNodeFaults, DestroyedGraphNodeEvaluatesNoMoreThoughTheHostKeepsItsComputation) {
    ExecutorTests::NumberTranslation translation;
    int runs = 0;
    auto graph =
        std::make_unique<GraphNode>(translation, "node", [&](const auto&, const auto&) { ++runs; });
    graph->addPort("out", PortDirection::Output, Pelmor::Library().getType("double"));
    const VFnDependencyNode node(graph->hostNode());
    {
        const ComputationsRefused refused;
        graph.reset();
    }
    VStatus status;
    node.dataBlock().inputValue(node.findPlug("out"), &status);
    EXPECT_EQ(runs, 0);
    EXPECT_FALSE(status);
}

}  // namespace
