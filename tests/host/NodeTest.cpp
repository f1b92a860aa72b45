#include "tests/host/Attributes.h"

#include <gtest/gtest.h>

namespace {

// A compound whose child enforces a unique name.
VObject enforcing(const char* compound, const char* child) {
    VFnCompoundAttribute result;
    result.create(compound, compound);
    result.addChild(makeDouble(child));
    return result.object();
}

}  // namespace

TEST(Node, NewNodeHasItsNameAndNoAttributes) {
    const VFnDependencyNode node(makeNode("walk"));
    EXPECT_EQ(node.name(), "walk");
    EXPECT_EQ(node.attributeCount(), 0U);
}

TEST(Node, FunctionSetOnNoNodeFails) {
    VStatus status;
    VFnDependencyNode none(makeDouble("a"), &status);
    EXPECT_EQ(status, VStatus::kInvalidParameter);
    EXPECT_TRUE(none.object().isNull());
    EXPECT_TRUE(fails([&](VStatus* s) { return none.name(s) == ""; }));
    EXPECT_TRUE(fails([&](VStatus* s) { return none.attribute("a", s).isNull(); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return none.findPlug("a", s).isNull(); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return none.dataBlock(s).outputValue({}).isNull(); }));
    EXPECT_EQ(none.setCompute(nullptr), VStatus::kInvalidParameter);
}

TEST(Node, TopLevelAttributesAreListedInTheOrderTheyCame) {
    const VObject limb = makeCompound("limb", {makeDouble("a"), makeDouble("b")});
    const VObject speed = makeDouble("speed");
    const VFnDependencyNode node(makeNode("walk", {limb, speed}));
    ASSERT_EQ(node.attributeCount(), 2U);
    EXPECT_EQ(node.attribute(0U), limb);
    EXPECT_EQ(node.attribute(1U), speed);
    VStatus status;
    EXPECT_TRUE(node.attribute(2U, &status).isNull());
    EXPECT_EQ(status, VStatus::kInvalidParameter);
}

TEST(Node, AttributeIsFoundByItsLongOrShortName) {
    const VObject weight = VFnNumericAttribute().create("weight", "w", VFnNumericData::kDouble);
    const VFnDependencyNode node(makeNode("walk", {weight}));
    EXPECT_EQ(node.attribute("weight"), weight);
    EXPECT_EQ(node.attribute("w"), weight);
    EXPECT_EQ(node.findPlug("w").attribute(), weight);
}

TEST(Node, UnknownNameGivesTheNullObjectWithoutAFailureButNoPlug) {
    const VFnDependencyNode node(makeNode("walk"));
    VStatus status = VStatus::kFailure;
    EXPECT_EQ(node.attribute("weight", &status), VObject::kNullObj);
    EXPECT_EQ(status, VStatus::kSuccess);
    EXPECT_TRUE(node.findPlug("weight", &status).isNull());
    EXPECT_EQ(status, VStatus::kNotFound);
}

TEST(Node, ChildrenAreNotFoundByName) {
    const VObject child = makeDouble("a");
    const VObject limb = makeCompound("limb", {child});
    const VFnDependencyNode node(makeNode("walk", {limb}));
    for (const bool enforcing : {false, true}) {
        VFnAttribute(child).setEnforcingUniqueName(enforcing);
        EXPECT_TRUE(node.attribute("a").isNull());
        EXPECT_TRUE(node.findPlug("a").isNull());
    }
    EXPECT_EQ(addTo(node.object(), makeDouble("a")), VStatus::kFailure)
        << "it is taken all the same";
    VFnAttribute(child).setEnforcingUniqueName(false);
    const VObject own = makeDouble("a");
    EXPECT_EQ(addTo(node.object(), own), VStatus::kSuccess);
    EXPECT_EQ(node.attribute("a"), own);
    EXPECT_EQ(node.findPlug("a").attribute(), own);
}

TEST(Node, TopLevelAttributeOfATakenNameIsRefused) {
    const VObject weight = VFnNumericAttribute().create("weight", "w", VFnNumericData::kDouble);
    const VObject node = makeNode("walk", {weight});
    EXPECT_EQ(addTo(node, makeText("weight")), VStatus::kFailure);
    EXPECT_EQ(addTo(node, makeText("w")), VStatus::kFailure);
    EXPECT_EQ(VFnDependencyNode(node).attributeCount(), 1U);
    EXPECT_EQ(VFnDependencyNode(node).attribute("weight"), weight);
}

TEST(Node, ChildrenThatEnforceNoNameMayShareOne) {
    const VObject node = makeNode("walk", {makeCompound("left", {makeDouble("a")})});
    EXPECT_EQ(addTo(node, makeCompound("right", {makeDouble("a")})), VStatus::kSuccess);
    EXPECT_EQ(addTo(node, makeDouble("a")), VStatus::kSuccess);
    EXPECT_EQ(addTo(node, makeCompound("b", {makeDouble("b")})), VStatus::kSuccess);
}

TEST(Node, EnforcingChildWhoseNameIsAnywhereIsRefused) {
    const VObject node = makeNode("walk", {makeCompound("left", {makeDouble("a")})});
    EXPECT_EQ(addTo(node, enforcing("right", "a")), VStatus::kFailure);
    EXPECT_EQ(addTo(node, enforcing("right", "left")), VStatus::kFailure);
    EXPECT_EQ(addTo(node, enforcing("right", "right")), VStatus::kFailure);
    EXPECT_EQ(VFnDependencyNode(node).attributeCount(), 1U);
    EXPECT_EQ(addTo(node, enforcing("right", "b")), VStatus::kSuccess);
    EXPECT_EQ(addTo(node, makeDouble("b")), VStatus::kFailure);
}

TEST(Node, EnforcingChildrenOfOneTreeThatShareANameAreRefused) {
    const VObject node = makeNode("walk");
    EXPECT_EQ(addTo(node, makeCompound("body", {enforcing("left", "a"), enforcing("right", "a")})),
              VStatus::kFailure);
    EXPECT_EQ(VFnDependencyNode(node).attributeCount(), 0U);
}

TEST(Node, ArraysNestedTooDeepAreRefused) {
    const auto nested = [](unsigned depth) {
        VObject attribute = asArray(makeDouble("value"));
        for (unsigned i = 1; i < depth; ++i)
            attribute = asArray(makeCompound("level", {attribute}));
        return attribute;
    };
    const VObject node = makeNode("walk");
    EXPECT_EQ(addTo(node, nested(VPlug::kMaxArrayDepth + 1)), VStatus::kFailure);
    EXPECT_EQ(VFnDependencyNode(node).attributeCount(), 0U);
    EXPECT_EQ(addTo(node, nested(VPlug::kMaxArrayDepth)), VStatus::kSuccess);
}

TEST(Node, NodeLivesWhileAHandleNamesIt) {
    VObject node = makeNode("walk", {makeDouble("a")});
    const VFnDependencyNode functions(node);
    node = VObject::kNullObj;
    EXPECT_EQ(functions.name(), "walk");
}

TEST(Node, AttributeThatOutlivesItsNodeMayGoToAnother) {
    const VObject attribute = makeDouble("a");
    { const VObject node = makeNode("walk", {attribute}); }
    const VObject other = makeNode("run");
    EXPECT_EQ(addTo(other, attribute), VStatus::kSuccess);
    EXPECT_EQ(VFnDependencyNode(other).attribute("a"), attribute);
}

TEST(Object, HandlesAreEqualWhenTheyNameTheSameThing) {
    const VObject one = makeDouble("a");
    VObject two = one;
    EXPECT_EQ(one, two);
    EXPECT_NE(one, makeDouble("a"));
    const VObject moved = std::move(two);
    EXPECT_EQ(one, moved);
    EXPECT_TRUE(VObject::kNullObj.isNull());
    EXPECT_EQ(VObject(), VObject::kNullObj);
}
