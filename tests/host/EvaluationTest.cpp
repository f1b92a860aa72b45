#include "tests/host/Arrays.h"
#include "tests/host/Attributes.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

// Gives `node` a computation out = in + 1, which notes the names of the plugs that it is called on.
void addOne(const VObject& node, std::vector<std::string>& computed) {
    VPlug in = plugOf(node, "in");
    VPlug out = plugOf(node, "out");
    VFnDependencyNode(node).setCompute([=, &computed](VPlug plug, VDataBlock& block) {
        computed.emplace_back(plug.name().asChar());
        block.outputValue(out).setDouble(block.inputValue(in).asDouble() + 1.0);
        return block.setClean(out.attribute());
    });
}

VObject makeAdder(const char* name, std::vector<std::string>& computed) {
    const VObject node = makeNode(name, {asInput(makeDouble("in")), asOutput(makeDouble("out"))});
    addOne(node, computed);
    return node;
}

double inputOf(const VObject& node, const char* attribute) {
    return blockOf(node).inputValue(plugOf(node, attribute)).asDouble();
}

using Names = std::vector<std::string>;

}  // namespace

TEST(DirtyAndClean, NewAttributeIsDirtyAndAskingForInputCleansIt) {
    const VObject node = makeNode("walk", {makeDouble("a")});
    VPlug plug = plugOf(node, "a");
    VDataBlock block = blockOf(node);
    EXPECT_FALSE(block.isClean(plug.attribute()));
    block.outputValue(plug);
    EXPECT_FALSE(block.isClean(plug.attribute()));
    block.inputValue(plug);
    EXPECT_TRUE(block.isClean(plug.attribute()));
}

TEST(DirtyAndClean, CompoundIsMarkedWithAllBelowIt) {
    const VObject leaf = makeDouble("leaf");
    const VObject inner = makeCompound("inner", {leaf});
    const VObject sibling = makeDouble("sibling");
    const VObject outer = makeCompound("outer", {inner, sibling});
    const VObject node = makeNode("walk", {outer});
    VDataBlock block = blockOf(node);
    block.setClean(outer);
    EXPECT_TRUE(block.isClean(outer));
    EXPECT_TRUE(block.isClean(leaf));
    EXPECT_TRUE(block.isClean(sibling));

    block.setDirty(inner);
    EXPECT_FALSE(block.isClean(leaf));
    EXPECT_FALSE(block.isClean(inner));
    EXPECT_FALSE(block.isClean(outer));
    EXPECT_TRUE(block.isClean(sibling));

    block.setClean(leaf);
    EXPECT_TRUE(block.isClean(leaf));
    EXPECT_FALSE(block.isClean(inner));
}

TEST(DirtyAndClean, DirtyInputMakesTheNodesOutputsDirty) {
    const VObject in = asInput(makeDouble("in"));
    const VObject other = makeDouble("other");
    const VObject child = makeDouble("child");
    const VObject out = asOutput(makeCompound("out", {child}));
    const VObject node = makeNode("walk", {in, other, out});
    VDataBlock block = blockOf(node);
    for (const VObject& attribute : {in, other, out}) block.setClean(attribute);
    block.setDirty(in);
    EXPECT_FALSE(block.isClean(in));
    EXPECT_FALSE(block.isClean(out));
    EXPECT_FALSE(block.isClean(child));
    EXPECT_TRUE(block.isClean(other));
}

TEST(DirtyAndClean, DirtyOutputLeavesTheInputsClean) {
    const VObject in = asInput(makeDouble("in"));
    const VObject out = asOutput(makeDouble("out"));
    const VObject second = asOutput(makeDouble("second"));
    const VObject node = makeNode("walk", {in, out, second});
    VDataBlock block = blockOf(node);
    for (const VObject& attribute : {in, out, second}) block.setClean(attribute);
    block.setDirty(out);
    EXPECT_TRUE(block.isClean(in));
    EXPECT_TRUE(block.isClean(second));
}

TEST(HostEvaluation, OutputIsComputedOnceUntilItIsDirty) {
    Names computed;
    const VObject node = makeAdder("node", computed);
    dataOf(node, "in").setDouble(4.0);
    EXPECT_EQ(inputOf(node, "out"), 5.0);
    EXPECT_EQ(inputOf(node, "out"), 5.0);
    EXPECT_EQ(computed, Names{"node.out"});
    dataOf(node, "in").setDouble(6.0);
    blockOf(node).setDirty(plugOf(node, "in").attribute());
    EXPECT_EQ(inputOf(node, "out"), 7.0);
    EXPECT_EQ(computed.size(), 2U);
}

TEST(HostEvaluation, AskingForAnOutputValueComputesNothing) {
    Names computed;
    const VObject node = makeAdder("node", computed);
    EXPECT_EQ(dataOf(node, "out").asDouble(), 0.0);
    EXPECT_TRUE(computed.empty());
}

TEST(HostEvaluation, OutputWithoutAComputationIsJustCleaned) {
    const VObject node = makeNode("walk", {asOutput(makeDouble("out", 3.0))});
    EXPECT_EQ(inputOf(node, "out"), 3.0);
    EXPECT_TRUE(blockOf(node).isClean(plugOf(node, "out").attribute()));
}

TEST(HostEvaluation, OutputThatTheComputationLeavesDirtyIsCleanAfterwards) {
    const VObject node = makeNode("walk", {asOutput(makeDouble("out"))});
    int runs = 0;
    VFnDependencyNode(node).setCompute([&](VPlug, VDataBlock&) {
        ++runs;
        return VStatus();
    });
    inputOf(node, "out");
    EXPECT_TRUE(blockOf(node).isClean(plugOf(node, "out").attribute()));
    inputOf(node, "out");
    EXPECT_EQ(runs, 1);
}

TEST(HostEvaluation, StatusOfAFailingComputationIsHandedOnWithTheDataAsItStands) {
    const VObject source = makeNode("source", {asOutput(makeDouble("out", 3.0))});
    VFnDependencyNode(source).setCompute(
        [](VPlug, VDataBlock&) { return VStatus(VStatus::kNotFound); });
    const VObject target = makeNode("target", {makeDouble("in")});
    connect(plugOf(source, "out"), plugOf(target, "in"));
    VStatus status;
    const VDataHandle handle = blockOf(target).inputValue(plugOf(target, "in"), &status);
    EXPECT_EQ(status, VStatus::kNotFound);
    EXPECT_EQ(handle.asDouble(), 3.0);
}

TEST(HostEvaluation, ChildOfAnOutputIsComputedWithTheWhole) {
    const VObject node = makeNode("walk", {asOutput(makeCompound("out", {makeDouble("a")}))});
    VPlug out = plugOf(node, "out");
    Names computed;
    VFnDependencyNode(node).setCompute([&](VPlug plug, VDataBlock& block) {
        computed.emplace_back(plug.name().asChar());
        block.outputValue(out.child(0)).setDouble(2.0);
        return VStatus();
    });
    EXPECT_EQ(blockOf(node).inputValue(out.child(0)).asDouble(), 2.0);
    EXPECT_EQ(computed, Names{"walk.out"});
    EXPECT_TRUE(blockOf(node).isClean(out.attribute()));
}

TEST(HostEvaluation, OutputInsideAWritableCompoundIsComputedWithIt) {
    const VObject node =
        makeNode("walk", {makeCompound("both", {makeDouble("in"), asOutput(makeDouble("out"))})});
    VPlug both = plugOf(node, "both");
    Names computed;
    VFnDependencyNode(node).setCompute([&](VPlug plug, VDataBlock& block) {
        computed.emplace_back(plug.name().asChar());
        block.outputValue(plug).setDouble(6.0);
        return VStatus();
    });
    const VDataHandle data = blockOf(node).inputValue(both);
    EXPECT_EQ(data.child(both.child(1)).asDouble(), 6.0);
    EXPECT_EQ(computed, Names{"walk.both.out"});
}

TEST(HostEvaluation, RemovedComputationIsNotCalled) {
    Names computed;
    const VObject node = makeAdder("node", computed);
    VFnDependencyNode(node).setCompute({});
    inputOf(node, "out");
    EXPECT_TRUE(computed.empty());
}

TEST(Connection, ConnectionsCarryAValueOverThreeNodes) {
    Names computed;
    const VObject first = makeAdder("first", computed);
    const VObject second = makeAdder("second", computed);
    const VObject third = makeAdder("third", computed);
    EXPECT_EQ(connect(plugOf(first, "out"), plugOf(second, "in")), VStatus::kSuccess);
    EXPECT_EQ(connect(plugOf(second, "out"), plugOf(third, "in")), VStatus::kSuccess);
    dataOf(first, "in").setDouble(10.0);
    EXPECT_EQ(inputOf(third, "out"), 13.0);
    EXPECT_EQ(computed, (Names{"third.out", "second.out", "first.out"}));
    EXPECT_EQ(inputOf(third, "out"), 13.0);
    EXPECT_EQ(computed.size(), 3U);
}

TEST(Connection, DirtyInputMakesWhatIsDownstreamDirty) {
    Names computed;
    const VObject first = makeAdder("first", computed);
    const VObject second = makeAdder("second", computed);
    connect(plugOf(first, "out"), plugOf(second, "in"));
    inputOf(second, "out");
    dataOf(first, "in").setDouble(20.0);
    EXPECT_EQ(inputOf(second, "out"), 2.0);
    blockOf(first).setDirty(plugOf(first, "in").attribute());
    EXPECT_FALSE(blockOf(second).isClean(plugOf(second, "in").attribute()));
    EXPECT_FALSE(blockOf(second).isClean(plugOf(second, "out").attribute()));
    EXPECT_EQ(inputOf(second, "out"), 22.0);
}

TEST(Connection, NewConnectionMakesItsDestinationDirty) {
    Names computed;
    const VObject source = makeNode("source", {makeDouble("a", 5.0)});
    const VObject target = makeAdder("target", computed);
    EXPECT_EQ(inputOf(target, "out"), 1.0);
    connect(plugOf(source, "a"), plugOf(target, "in"));
    EXPECT_EQ(inputOf(target, "out"), 6.0);
}

TEST(Connection, BrokenConnectionLeavesTheValueAndCarriesNoMore) {
    const VObject source = makeNode("source", {makeDouble("a", 5.0)});
    const VObject target = makeNode("target", {makeDouble("a")});
    connect(plugOf(source, "a"), plugOf(target, "a"));
    EXPECT_EQ(inputOf(target, "a"), 5.0);
    VDGModifier modifier;
    modifier.disconnect(plugOf(source, "a"), plugOf(target, "a"));
    EXPECT_EQ(modifier.doIt(), VStatus::kSuccess);
    dataOf(source, "a").setDouble(6.0);
    blockOf(source).setDirty(plugOf(source, "a").attribute());
    EXPECT_TRUE(blockOf(target).isClean(plugOf(target, "a").attribute()));
    EXPECT_EQ(inputOf(target, "a"), 5.0);
}

TEST(Connection, ConnectedArrayIsCopiedWithItsLogicalIndices) {
    const VObject source = makeNode("source", {asArray(makeDouble("a"))});
    const VObject target = makeNode("target", {asArray(makeDouble("a"))});
    connect(plugOf(source, "a"), plugOf(target, "a"));
    fill(dataOf(source, "a"), {{2, 20.0}, {5, 50.0}});
    fill(dataOf(target, "a"), {{0, 1.0}, {5, 2.0}});
    const VDataHandle copy = blockOf(target).inputValue(plugOf(target, "a"));
    EXPECT_EQ(elementsOf(copy), (Elements{{2, 20.0}, {5, 50.0}}));
    fill(dataOf(source, "a"), {{2, 21.0}});
    EXPECT_EQ(elementsOf(copy), (Elements{{2, 20.0}, {5, 50.0}}));
}

TEST(Connection, ArrayHandleEvaluatesWhatTheArrayDependsOn) {
    const VObject source = makeNode("source", {asArray(makeDouble("a"))});
    const VObject target = makeNode("target", {asArray(makeDouble("a"))});
    connect(plugOf(source, "a"), plugOf(target, "a"));
    fill(dataOf(source, "a"), {{3, 30.0}});
    VArrayDataHandle handle(dataOf(target, "a"));
    EXPECT_TRUE(handle.outputValue().isNull());
    EXPECT_EQ(handle.inputValue().asDouble(), 30.0);
    EXPECT_TRUE(blockOf(target).isClean(plugOf(target, "a").attribute()));
}

TEST(Connection, ConnectedCompoundIsCopiedWithAllThatIsBelowIt) {
    const auto limb = [] {
        return makeCompound("limb", {makeText("name"), makeMatrix("frame"),
                                     makeNumber("on", VFnNumericData::kBoolean),
                                     makeNumber("count", VFnNumericData::kInt),
                                     asArray(makeCompound("bones", {makeDouble("length")}))});
    };
    const VObject source = makeNode("source", {limb()});
    const VObject target = makeNode("target", {limb()});
    EXPECT_EQ(connect(plugOf(source, "limb"), plugOf(target, "limb")), VStatus::kSuccess);
    VPlug from = plugOf(source, "limb");
    VPlug to = plugOf(target, "limb");
    const VDataHandle data = dataOf(source, "limb");
    VMatrix matrix;
    matrix[1][2] = 4.0;
    data.child(from.child(0)).setString("arm");
    data.child(from.child(1)).setMatrix(matrix);
    data.child(from.child(2)).setBool(true);
    data.child(from.child(3)).setInt(11);
    VArrayDataHandle bones(data.child(from.child(4)));
    VArrayDataBuilder builder = bones.builder();
    builder.addElement(6).child(from.child(4).elementByLogicalIndex(0).child(0)).setDouble(3.0);
    bones.set(builder);

    // Asking for a child asks for all that comes with it.
    EXPECT_EQ(blockOf(target).inputValue(to.child(0)).asString(), "arm");
    EXPECT_TRUE(blockOf(target).isClean(to.attribute()));
    const VDataHandle copy = dataOf(target, "limb");
    EXPECT_EQ(copy.child(to.child(1)).asMatrix(), matrix);
    EXPECT_TRUE(copy.child(to.child(2)).asBool());
    EXPECT_EQ(copy.child(to.child(3)).asInt(), 11);
    VPlug length = to.child(4).elementByLogicalIndex(6).child(0);
    EXPECT_EQ(blockOf(target).outputValue(length).asDouble(), 3.0);
}

TEST(Connection, ConnectionBelowACompoundIsEvaluatedWithIt) {
    const VObject source = makeNode("source", {makeDouble("a", 8.0)});
    const VObject target = makeNode("target", {makeCompound("limb", {makeDouble("a")})});
    VPlug limb = plugOf(target, "limb");
    connect(plugOf(source, "a"), limb.child(0));
    const VDataHandle data = blockOf(target).inputValue(limb);
    EXPECT_EQ(data.child(limb.child(0)).asDouble(), 8.0);
}

TEST(Connection, ConnectionOfElementsMakesTheDestinationElement) {
    const VObject source = makeNode("source", {asArray(makeDouble("a"))});
    const VObject target = makeNode("target", {asArray(makeDouble("a"))});
    VPlug from = plugOf(source, "a");
    VPlug to = plugOf(target, "a");
    fill(dataOf(source, "a"), {{4, 40.0}});
    connect(from.elementByLogicalIndex(4), to.elementByLogicalIndex(9));
    connect(from.elementByLogicalIndex(5), to.elementByLogicalIndex(1));
    EXPECT_EQ(blockOf(target).inputValue(to.elementByLogicalIndex(9)).asDouble(), 40.0);
    EXPECT_EQ(elementsOf(dataOf(target, "a")), (Elements{{9, 40.0}}));
}

TEST(Connection, CycleOfConnectionsComesToAnEnd) {
    Names computed;
    const VObject first = makeAdder("first", computed);
    const VObject second = makeAdder("second", computed);
    connect(plugOf(first, "out"), plugOf(second, "in"));
    connect(plugOf(second, "out"), plugOf(first, "in"));
    EXPECT_EQ(inputOf(first, "out"), 2.0);
    EXPECT_EQ(computed.size(), 2U);
    EXPECT_EQ(blockOf(first).setDirty(plugOf(first, "in").attribute()), VStatus::kSuccess);
    EXPECT_FALSE(blockOf(second).isClean(plugOf(second, "out").attribute()));
}

TEST(Connection, ConnectionEndsWithItsSourceNode) {
    const VObject target = makeNode("target", {makeDouble("a", 1.0)});
    {
        const VObject source = makeNode("source", {makeDouble("a", 5.0)});
        connect(plugOf(source, "a"), plugOf(target, "a"));
    }
    EXPECT_EQ(inputOf(target, "a"), 1.0);
    const VObject source = makeNode("source", {makeDouble("a", 6.0)});
    EXPECT_EQ(connect(plugOf(source, "a"), plugOf(target, "a")), VStatus::kSuccess);
}

TEST(Connection, ConnectionEndsWithItsDestinationNode) {
    const VObject source = makeNode("source", {makeDouble("a", 5.0)});
    {
        const VObject target = makeNode("target", {makeDouble("a")});
        connect(plugOf(source, "a"), plugOf(target, "a"));
    }
    EXPECT_EQ(blockOf(source).setDirty(plugOf(source, "a").attribute()), VStatus::kSuccess);
}

TEST(Connection, ConnectionOfANodeToItselfIsEvaluatedOnce) {
    Names computed;
    const VObject node = makeAdder("node", computed);
    connect(plugOf(node, "out"), plugOf(node, "in"));
    EXPECT_EQ(inputOf(node, "out"), 1.0);
}
