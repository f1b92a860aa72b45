#include "tests/host/Attributes.h"

#include <gtest/gtest.h>

namespace {

// walk.limbs[].names[], walk.limbs[].weight, walk.root
class HostPlug : public testing::Test {
protected:
    const VObject names = asArray(makeText("names"));
    const VObject weight = makeDouble("weight");
    const VObject limbs = asArray(makeCompound("limbs", {names, weight}));
    const VObject root = makeCompound("root", {makeMatrix("frame")});
    const VObject node = makeNode("walk", {limbs, root});
    VStatus status;
};

}  // namespace

TEST_F(HostPlug, PlugGoesDownByChildAndLogicalIndex) {
    VPlug plug = VPlug(node, limbs).elementByLogicalIndex(3).child(0).elementByLogicalIndex(7);
    EXPECT_EQ(plug.name(), "walk.limbs[3].names[7]");
    EXPECT_EQ(plug.attribute(), names);
    EXPECT_EQ(plug.node(), node);
    EXPECT_EQ(plug.logicalIndex(), 7U);
}

TEST_F(HostPlug, PlugOfAnAbsentElementIsStillAPlug) {
    VPlug plug = VPlug(node, limbs).elementByLogicalIndex(4000000000U, &status);
    EXPECT_EQ(status, VStatus::kSuccess);
    EXPECT_EQ(plug.logicalIndex(), 4000000000U);
    EXPECT_TRUE(blockOf(node).outputValue(plug).isNull());
}

TEST_F(HostPlug, PlugTellsWholeArraysElementsAndCompounds) {
    VPlug array(node, limbs);
    EXPECT_TRUE(array.isArray());
    EXPECT_FALSE(array.isElement());
    EXPECT_TRUE(array.isCompound());
    VPlug element = array.elementByLogicalIndex(0);
    EXPECT_FALSE(element.isArray());
    EXPECT_TRUE(element.isElement());
    EXPECT_TRUE(element.isCompound());
    VPlug leaf = element.child(1);
    EXPECT_FALSE(leaf.isArray());
    EXPECT_FALSE(leaf.isElement());
    EXPECT_FALSE(leaf.isCompound());
    EXPECT_TRUE(element.child(0).isArray());
}

TEST_F(HostPlug, PlugMadeFromAnAttributeIsInTheElementsAtZero) {
    EXPECT_EQ(VPlug(node, weight).name(), "walk.limbs[0].weight");
    EXPECT_EQ(VPlug(node, weight), VPlug(node, limbs).elementByLogicalIndex(0).child(1));
    EXPECT_EQ(VPlug(node, limbs).name(), "walk.limbs");
}

TEST_F(HostPlug, EqualityComparesTheWholePath) {
    VPlug array(node, limbs);
    EXPECT_EQ(array.elementByLogicalIndex(2).child(1), array.elementByLogicalIndex(2).child(1));
    EXPECT_NE(array.elementByLogicalIndex(2).child(1), array.elementByLogicalIndex(3).child(1));
    EXPECT_NE(array, array.elementByLogicalIndex(0));
    EXPECT_EQ(VPlug(), VPlug());
}

TEST_F(HostPlug, ChildPlugOfAWholeArrayOrPastTheLastFails) {
    EXPECT_TRUE(fails([&](VStatus* s) { return VPlug(node, limbs).child(0, s).isNull(); }));
    VPlug compound(node, root);
    EXPECT_EQ(compound.numChildren(), 1U);
    EXPECT_FALSE(compound.child(0, &status).isNull());
    EXPECT_EQ(status, VStatus::kSuccess);
    EXPECT_TRUE(fails([&](VStatus* s) { return compound.child(1, s).isNull(); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return VPlug(node, weight).numChildren(s) == 0; }));
}

TEST_F(HostPlug, OnlyThePlugOfAWholeArrayHasElements) {
    VPlug compound(node, root);
    VPlug element = VPlug(node, limbs).elementByLogicalIndex(1);
    EXPECT_TRUE(fails([&](VStatus* s) { return compound.elementByLogicalIndex(0, s).isNull(); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return element.elementByLogicalIndex(0, s).isNull(); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return element.child(1).logicalIndex(s) == 0; }));
}

TEST_F(HostPlug, PlugOfAnAttributeOfAnotherNodeIsRefused) {
    EXPECT_TRUE(fails([&](VStatus* s) { return VPlug(node, makeDouble("weight"), s).isNull(); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return VPlug(makeNode("run"), weight, s).isNull(); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return VPlug(weight, node, s).isNull(); }));
}

TEST_F(HostPlug, EveryOperationOnANullPlugFails) {
    VPlug none;
    EXPECT_TRUE(none.isNull());
    EXPECT_TRUE(fails([&](VStatus* s) { return none.child(0, s).isNull(); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return none.numChildren(s) == 0; }));
    EXPECT_TRUE(fails([&](VStatus* s) { return none.elementByLogicalIndex(0, s).isNull(); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return none.logicalIndex(s) == 0; }));
    EXPECT_TRUE(fails([&](VStatus* s) { return !none.isArray(s); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return !none.isElement(s); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return !none.isCompound(s); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return none.attribute(s).isNull(); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return none.node(s).isNull(); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return none.name(s) == ""; }));
}

TEST_F(HostPlug, PlugReachesTheDeepestArrayThatANodeTakes) {
    VObject attribute = asArray(makeDouble("value"));
    for (unsigned i = 1; i < VPlug::kMaxArrayDepth; ++i) {
        attribute = asArray(makeCompound("level", {attribute}));
    }
    const VObject deep = makeNode("deep", {attribute});
    VPlug plug = plugOf(deep, "level");
    for (unsigned i = 0; i + 1 < VPlug::kMaxArrayDepth; ++i) {
        plug = plug.elementByLogicalIndex(i).child(0);
    }
    plug = plug.elementByLogicalIndex(9);
    EXPECT_EQ(plug.name(), "deep.level[0].level[1].level[2].level[3].level[4].level[5].value[9]");
}
