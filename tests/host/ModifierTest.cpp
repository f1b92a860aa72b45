#include "tests/host/Attributes.h"

#include <gtest/gtest.h>

TEST(Modifier, OperationsAreQueuedUntilDoIt) {
    const VObject node = makeNode("walk");
    const VObject attribute = makeDouble("a");
    VDGModifier modifier;
    EXPECT_EQ(modifier.addAttribute(node, attribute), VStatus::kSuccess);
    EXPECT_EQ(VFnDependencyNode(node).attributeCount(), 0U);
    EXPECT_EQ(modifier.doIt(), VStatus::kSuccess);
    EXPECT_EQ(VFnDependencyNode(node).attribute("a"), attribute);
}

TEST(Modifier, DoItCarriesOutTheQueueOnce) {
    const VObject node = makeNode("walk");
    VDGModifier modifier;
    modifier.addAttribute(node, makeDouble("a"));
    EXPECT_EQ(modifier.doIt(), VStatus::kSuccess);
    EXPECT_EQ(modifier.doIt(), VStatus::kSuccess);
    modifier.addAttribute(node, makeDouble("b"));
    EXPECT_EQ(modifier.doIt(), VStatus::kSuccess);
    EXPECT_EQ(VFnDependencyNode(node).attributeCount(), 2U);
}

TEST(Modifier, ModifierDroppedWithoutDoItChangesNothing) {
    const VObject node = makeNode("walk");
    { VDGModifier().addAttribute(node, makeDouble("a")); }
    EXPECT_EQ(VFnDependencyNode(node).attributeCount(), 0U);
}

TEST(Modifier, NullAndWrongArgumentsAreRefusedAtOnce) {
    const VObject node = makeNode("walk");
    const VObject attribute = makeDouble("a");
    VDGModifier modifier;
    EXPECT_EQ(modifier.addAttribute(VObject::kNullObj, attribute), VStatus::kInvalidParameter);
    EXPECT_EQ(modifier.addAttribute(node, VObject::kNullObj), VStatus::kInvalidParameter);
    EXPECT_EQ(modifier.addAttribute(attribute, node), VStatus::kInvalidParameter);
    EXPECT_EQ(modifier.connect(VPlug(), VPlug()), VStatus::kInvalidParameter);
    EXPECT_EQ(modifier.disconnect(VPlug(), VPlug()), VStatus::kInvalidParameter);
    EXPECT_EQ(modifier.doIt(), VStatus::kSuccess);
    EXPECT_EQ(VFnDependencyNode(node).attributeCount(), 0U);
}

TEST(Modifier, AttributeThatIsTakenIsRefusedAtOnce) {
    const VObject child = makeDouble("a");
    const VObject node = makeNode("walk", {makeCompound("limb", {child})});
    VDGModifier modifier;
    EXPECT_EQ(modifier.addAttribute(node, child), VStatus::kFailure);
    EXPECT_EQ(modifier.addAttribute(makeNode("run"), VFnDependencyNode(node).attribute("limb")),
              VStatus::kFailure);
}

TEST(Modifier, FailedOperationTakesBackThoseBeforeIt) {
    const VObject source = makeNode("source", {makeDouble("a")});
    const VObject target = makeNode("target", {makeDouble("a"), makeDouble("taken")});
    VDataBlock block = blockOf(target);
    VPlug destination = plugOf(target, "a");
    block.setClean(destination.attribute());

    VDGModifier modifier;
    modifier.addAttribute(target, makeDouble("new"));
    modifier.addAttribute(source, makeDouble("new"));
    modifier.connect(plugOf(source, "a"), destination);
    modifier.addAttribute(target, makeDouble("taken"));
    modifier.addAttribute(target, makeDouble("later"));
    EXPECT_EQ(modifier.doIt(), VStatus::kFailure);

    EXPECT_EQ(VFnDependencyNode(target).attributeCount(), 2U);
    EXPECT_EQ(VFnDependencyNode(source).attributeCount(), 1U);
    EXPECT_TRUE(VFnDependencyNode(target).attribute("new").isNull());
    EXPECT_TRUE(block.isClean(destination.attribute()));
    EXPECT_EQ(connect(plugOf(source, "a"), destination), VStatus::kSuccess);
    EXPECT_EQ(modifier.doIt(), VStatus::kSuccess);
    EXPECT_EQ(VFnDependencyNode(target).attributeCount(), 2U);
}

TEST(Modifier, FailedOperationTakesBackADisconnection) {
    const VObject source = makeNode("source", {makeDouble("a", 4.0)});
    const VObject target = makeNode("target", {makeDouble("a")});
    connect(plugOf(source, "a"), plugOf(target, "a"));
    VDGModifier modifier;
    modifier.disconnect(plugOf(source, "a"), plugOf(target, "a"));
    modifier.addAttribute(target, makeDouble("a"));
    EXPECT_TRUE(modifier.doIt().error());
    EXPECT_EQ(blockOf(target).inputValue(plugOf(target, "a")).asDouble(), 4.0);
}

TEST(Modifier, AttributeQueuedTwiceFailsInDoIt) {
    const VObject node = makeNode("walk");
    const VObject attribute = makeDouble("a");
    VDGModifier modifier;
    modifier.addAttribute(node, attribute);
    modifier.addAttribute(node, attribute);
    EXPECT_EQ(modifier.doIt(), VStatus::kFailure);
    EXPECT_EQ(VFnDependencyNode(node).attributeCount(), 0U);
    EXPECT_EQ(addTo(node, attribute), VStatus::kSuccess);
}

TEST(Modifier, PlugsThatCannotBeConnectedAreRefused) {
    const VObject source =
        makeNode("source", {makeDouble("number"), makeText("text"), asArray(makeDouble("numbers")),
                            asInput(makeDouble("input")), makeCompound("pair", {makeDouble("a")})});
    const VObject target = makeNode("target", {makeDouble("number"), asOutput(makeDouble("output")),
                                               makeCompound("pair", {makeText("a")})});
    VDGModifier modifier;
    const auto refuses = [&](VPlug from, VPlug to) {
        return modifier.connect(from, to) == VStatus::kInvalidParameter;
    };
    VPlug number = plugOf(target, "number");
    EXPECT_TRUE(refuses(plugOf(source, "text"), number));
    EXPECT_TRUE(refuses(plugOf(source, "numbers"), number));
    EXPECT_TRUE(refuses(plugOf(source, "input"), number));
    EXPECT_TRUE(refuses(plugOf(source, "number"), plugOf(target, "output")));
    EXPECT_TRUE(refuses(plugOf(source, "pair"), plugOf(target, "pair")));
    EXPECT_TRUE(refuses(number, number));
    EXPECT_EQ(modifier.connect(plugOf(source, "numbers").elementByLogicalIndex(2), number),
              VStatus::kSuccess);
}

TEST(Modifier, SecondSourceOfADestinationIsRefused) {
    const VObject source = makeNode("source", {makeDouble("a"), makeDouble("b")});
    const VObject target = makeNode("target", {makeDouble("a")});
    EXPECT_EQ(connect(plugOf(source, "a"), plugOf(target, "a")), VStatus::kSuccess);
    EXPECT_EQ(connect(plugOf(source, "b"), plugOf(target, "a")), VStatus::kFailure);
}

TEST(Modifier, DisconnectionOfWhatIsNotConnectedIsNotFound) {
    const VObject source = makeNode("source", {makeDouble("a")});
    const VObject target = makeNode("target", {makeDouble("a")});
    VDGModifier modifier;
    EXPECT_EQ(modifier.disconnect(plugOf(source, "a"), plugOf(target, "a")), VStatus::kSuccess);
    EXPECT_EQ(modifier.doIt(), VStatus::kNotFound);
}

TEST(Modifier, ModifierKeepsTheNodesOfQueuedPlugsAlive) {
    VObject source = makeNode("source", {makeDouble("a")});
    const VObject target = makeNode("target", {makeDouble("a")});
    VDGModifier modifier;
    modifier.connect(plugOf(source, "a"), plugOf(target, "a"));
    source = VObject();
    EXPECT_EQ(modifier.doIt(), VStatus::kSuccess);
}
