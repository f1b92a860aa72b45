#include "tests/host/Arrays.h"
#include "tests/host/Attributes.h"

#include <gtest/gtest.h>

namespace {

class HostArray : public testing::Test {
protected:
    const VObject node = makeNode("walk", {asArray(makeDouble("weights", 0.5))});
    const VDataHandle data = dataOf(node, "weights");
    VStatus status;
};

}  // namespace

TEST_F(HostArray, WalkGoesThroughSparseElementsInAscendingLogicalIndex) {
    fill(data, {{7, 70.0}, {0, 0.0}, {3, 30.0}});
    VArrayDataHandle handle(data);
    EXPECT_EQ(handle.elementCount(), 3U);
    EXPECT_EQ(handle.elementIndex(), 0U);
    EXPECT_EQ(handle.next(), VStatus::kSuccess);
    EXPECT_EQ(handle.elementIndex(), 3U);
    EXPECT_EQ(handle.outputValue().asDouble(), 30.0);
    EXPECT_EQ(handle.next(), VStatus::kSuccess);
    EXPECT_EQ(handle.elementIndex(), 7U);
    EXPECT_EQ(handle.inputValue().asDouble(), 70.0);
}

TEST_F(HostArray, HandlePastTheLastElementFails) {
    fill(data, {{0, 1.0}});
    VArrayDataHandle handle(data);
    EXPECT_TRUE(handle.next().error());
    const auto isNotFound = [](auto call) { return fails(call, VStatus::kNotFound); };
    EXPECT_TRUE(isNotFound([&](VStatus* s) { return handle.outputValue(s).isNull(); }));
    EXPECT_TRUE(isNotFound([&](VStatus* s) { return handle.inputValue(s).isNull(); }));
    EXPECT_TRUE(isNotFound([&](VStatus* s) { return handle.elementIndex(s) == 0; }));
    EXPECT_TRUE(handle.next().error());
    EXPECT_EQ(handle.elementCount(), 1U);
}

TEST_F(HostArray, HandleOnAnEmptyArrayIsPastTheLastElement) {
    VArrayDataHandle handle(data);
    EXPECT_EQ(handle.elementCount(&status), 0U);
    EXPECT_EQ(status, VStatus::kSuccess);
    EXPECT_TRUE(handle.outputValue().isNull());
    EXPECT_TRUE(handle.next().error());
}

TEST_F(HostArray, HandleJumpsByLogicalIndexAndByPosition) {
    fill(data, {{2, 20.0}, {4, 40.0}, {9, 90.0}});
    VArrayDataHandle handle(data);
    EXPECT_EQ(handle.jumpToElement(9), VStatus::kSuccess);
    EXPECT_EQ(handle.outputValue().asDouble(), 90.0);
    EXPECT_EQ(handle.jumpToArrayElement(1), VStatus::kSuccess);
    EXPECT_EQ(handle.elementIndex(), 4U);
    EXPECT_EQ(handle.jumpToElement(3), VStatus::kNotFound);
    EXPECT_EQ(handle.jumpToArrayElement(3), VStatus::kNotFound);
    EXPECT_EQ(handle.elementIndex(), 4U);
}

TEST_F(HostArray, WriteThroughAnElementIsSeenInTheData) {
    fill(data, {{6, 1.0}});
    VArrayDataHandle(data).outputValue().setDouble(8.0);
    VPlug element = plugOf(node, "weights").elementByLogicalIndex(6);
    EXPECT_EQ(blockOf(node).outputValue(element).asDouble(), 8.0);
}

TEST_F(HostArray, HandleOnAnythingButAWholeArrayFails) {
    fill(data, {{0, 1.0}});
    const VDataHandle element = VArrayDataHandle(data).outputValue();
    const VObject runner = makeNode("run", {makeDouble("a")});
    const VDataHandle number = dataOf(runner, "a");
    for (const VDataHandle& bad : {VDataHandle(), element, number}) {
        VArrayDataHandle handle(bad, &status);
        EXPECT_EQ(status, VStatus::kInvalidParameter);
        EXPECT_TRUE(fails([&](VStatus* s) { return handle.elementCount(s) == 0; }));
        EXPECT_TRUE(fails([&](VStatus* s) { return handle.outputValue(s).isNull(); }));
        EXPECT_TRUE(fails([&](VStatus* s) { return handle.inputValue(s).isNull(); }));
        EXPECT_TRUE(fails([&](VStatus* s) { return handle.elementIndex(s) == 0; }));
        EXPECT_TRUE(fails([&](VStatus* s) { return handle.set(handle.builder(s)).error(); }));
        for (const VStatus& answer : {handle.next(), handle.jumpToElement(0),
                                      handle.jumpToArrayElement(0), handle.setAllClean()})
            EXPECT_TRUE(answer.error());
    }
}

TEST_F(HostArray, SetAllCleanCleansTheAttributeAndAllBelowIt) {
    const VObject weight = makeDouble("weight");
    const VObject limbs = asArray(makeCompound("limbs", {weight}));
    const VObject other = makeDouble("other");
    const VObject runner = makeNode("run", {limbs, other});
    VDataBlock block = blockOf(runner);
    EXPECT_EQ(VArrayDataHandle(dataOf(runner, "limbs")).setAllClean(), VStatus::kSuccess);
    EXPECT_TRUE(block.isClean(limbs));
    EXPECT_TRUE(block.isClean(weight));
    EXPECT_FALSE(block.isClean(other));
}

TEST_F(HostArray, BuilderBeginsWithTheElementsOfTheArray) {
    fill(data, {{1, 10.0}, {5, 50.0}});
    VArrayDataBuilder builder = VArrayDataHandle(data).builder();
    EXPECT_EQ(builder.elementCount(), 2U);
    EXPECT_EQ(builder.addElement(5).asDouble(), 50.0);
    EXPECT_EQ(builder.elementCount(), 2U);
}

TEST_F(HostArray, BuilderGivesNewElementsTheDefaultOfTheirAttribute) {
    VArrayDataBuilder builder = VArrayDataHandle(data).builder();
    EXPECT_EQ(builder.addElement(4, &status).asDouble(), 0.5);
    EXPECT_EQ(status, VStatus::kSuccess);
    EXPECT_EQ(builder.elementCount(), 1U);
}

TEST_F(HostArray, BuilderDroppedWithoutSetChangesNothing) {
    fill(data, {{0, 1.0}, {1, 2.0}});
    {
        VArrayDataBuilder builder = VArrayDataHandle(data).builder();
        builder.addElement(0).setDouble(9.0);
        builder.addElement(7).setDouble(9.0);
        builder.removeElement(1);
    }
    EXPECT_EQ(elementsOf(data), (Elements{{0, 1.0}, {1, 2.0}}));
}

TEST_F(HostArray, BuilderChangesAreSeenInTheArrayFromSetOn) {
    fill(data, {{0, 1.0}, {1, 2.0}});
    VArrayDataHandle handle(data);
    VArrayDataBuilder builder = handle.builder();
    builder.addElement(0).setDouble(9.0);
    EXPECT_EQ(elementsOf(data), (Elements{{0, 1.0}, {1, 2.0}}));
    EXPECT_EQ(handle.set(builder), VStatus::kSuccess);
    EXPECT_EQ(elementsOf(data), (Elements{{0, 9.0}, {1, 2.0}}));
}

TEST_F(HostArray, BuilderGivesTheSameElementAgain) {
    fill(data, {{0, 1.0}});
    VArrayDataBuilder builder = VArrayDataHandle(data).builder();
    builder.addElement(0).setDouble(9.0);
    EXPECT_EQ(builder.addElement(0).asDouble(), 9.0);
}

TEST_F(HostArray, BuilderRemovesWhatItHasAndFailsOnWhatItLacks) {
    fill(data, {{0, 1.0}, {5, 2.0}, {9, 3.0}});
    VArrayDataHandle handle(data);
    VArrayDataBuilder builder = handle.builder();
    EXPECT_EQ(builder.removeElement(5), VStatus::kSuccess);
    EXPECT_EQ(builder.removeElement(5), VStatus::kNotFound);
    EXPECT_EQ(builder.removeElement(1), VStatus::kNotFound);
    EXPECT_EQ(builder.elementCount(), 2U);
    handle.set(builder);
    EXPECT_EQ(elementsOf(data), (Elements{{0, 1.0}, {9, 3.0}}));
}

TEST_F(HostArray, BuilderKeepsElementsInOrderHoweverTheyAreAdded) {
    fill(data, {{5, 5.0}, {1, 1.0}, {4000000000U, 9.0}, {3, 3.0}, {0, 0.0}});
    EXPECT_EQ(elementsOf(data),
              (Elements{{0, 0.0}, {1, 1.0}, {3, 3.0}, {5, 5.0}, {4000000000U, 9.0}}));
}

TEST_F(HostArray, SetMovesTheHandleToTheFirstElement) {
    fill(data, {{0, 1.0}, {1, 2.0}});
    VArrayDataHandle handle(data);
    handle.next();
    handle.set(handle.builder());
    EXPECT_EQ(handle.elementIndex(), 0U);
}

TEST_F(HostArray, BuilderStaysIndependentAfterSet) {
    fill(data, {{0, 1.0}, {1, 2.0}});
    VArrayDataHandle handle(data);
    VArrayDataBuilder builder = handle.builder();
    builder.addElement(0).setDouble(8.0);
    handle.set(builder);
    builder.addElement(0).setDouble(9.0);
    builder.addElement(1).setDouble(9.0);
    builder.addElement(2);
    EXPECT_EQ(elementsOf(data), (Elements{{0, 8.0}, {1, 2.0}}));
    handle.set(builder);
    EXPECT_EQ(elementsOf(data), (Elements{{0, 9.0}, {1, 9.0}, {2, 0.5}}));
}

TEST_F(HostArray, TwoBuildersOfOneArrayAreIndependent) {
    fill(data, {{0, 1.0}});
    VArrayDataHandle handle(data);
    VArrayDataBuilder first = handle.builder();
    VArrayDataBuilder second = handle.builder();
    first.addElement(0).setDouble(2.0);
    second.addElement(0).setDouble(3.0);
    handle.set(first);
    EXPECT_EQ(elementsOf(data), (Elements{{0, 2.0}}));
    handle.set(second);
    EXPECT_EQ(elementsOf(data), (Elements{{0, 3.0}}));
}

TEST_F(HostArray, BuilderOfAnotherAttributeIsRefused) {
    const VObject other = makeNode("run", {asArray(makeDouble("weights"))});
    fill(data, {{0, 1.0}});
    VArrayDataHandle handle(data);
    EXPECT_EQ(handle.set(VArrayDataHandle(dataOf(other, "weights")).builder()),
              VStatus::kInvalidParameter);
    EXPECT_EQ(handle.set(VArrayDataBuilder()), VStatus::kInvalidParameter);
    EXPECT_EQ(elementsOf(data), (Elements{{0, 1.0}}));
}

TEST_F(HostArray, BuilderOfNothingFails) {
    VArrayDataBuilder none;
    EXPECT_TRUE(none.addElement(0, &status).isNull());
    EXPECT_EQ(status, VStatus::kInvalidParameter);
    EXPECT_EQ(none.removeElement(0), VStatus::kInvalidParameter);
    EXPECT_EQ(none.elementCount(&status), 0U);
    EXPECT_EQ(status, VStatus::kInvalidParameter);
}

TEST_F(HostArray, BuilderMovesWithItsElements) {
    fill(data, {{0, 1.0}});
    VArrayDataHandle handle(data);
    VArrayDataBuilder first = handle.builder();
    first.addElement(3).setDouble(3.0);
    VArrayDataBuilder second;
    second = std::move(first);
    EXPECT_EQ(handle.set(second), VStatus::kSuccess);
    EXPECT_EQ(elementsOf(data), (Elements{{0, 1.0}, {3, 3.0}}));
}

TEST_F(HostArray, HandlesToElementsThatABuilderLeavesAloneStayValid) {
    fill(data, {{0, 1.0}, {1, 2.0}});
    VArrayDataHandle handle(data);
    VDataHandle first = handle.outputValue();
    VArrayDataBuilder builder = handle.builder();
    builder.addElement(1).setDouble(4.0);
    handle.set(builder);
    first.setDouble(3.0);
    EXPECT_EQ(elementsOf(data), (Elements{{0, 3.0}, {1, 4.0}}));
}

TEST_F(HostArray, BuilderMayOutliveItsNode) {
    VArrayDataBuilder builder;
    {
        const VObject runner =
            makeNode("run", {asArray(makeCompound("limbs", {makeText("name")}))});
        builder = VArrayDataHandle(dataOf(runner, "limbs")).builder();
        builder.addElement(0);
    }
    EXPECT_EQ(builder.elementCount(), 1U);
}

namespace {

// run.limbs[].weights[]
class NestedHostArray : public testing::Test {
protected:
    const VObject node =
        makeNode("run", {asArray(makeCompound("limbs", {asArray(makeDouble("weights"))}))});
    VPlug weights = plugOf(node, "limbs").elementByLogicalIndex(0).child(0);
    VArrayDataHandle limbs{dataOf(node, "limbs")};
};

}  // namespace

TEST_F(NestedHostArray, InnerArrayIsCopiedWithTheElementThatHoldsIt) {
    VArrayDataBuilder builder = limbs.builder();
    fill(builder.addElement(0).child(weights), {{2, 1.0}});
    limbs.set(builder);
    fill(builder.addElement(0).child(weights), {{2, 5.0}, {3, 6.0}});
    EXPECT_EQ(elementsOf(limbs.outputValue().child(weights)), (Elements{{2, 1.0}}));
}

TEST_F(NestedHostArray, BuilderSetInTwoElementsLeavesThemIndependent) {
    VArrayDataBuilder builder = limbs.builder();
    builder.addElement(0);
    builder.addElement(1);
    limbs.set(builder);
    const VDataHandle first = limbs.outputValue().child(weights);
    limbs.next();
    const VDataHandle second = limbs.outputValue().child(weights);

    fill(first, {{0, 1.0}});
    VArrayDataBuilder shared = VArrayDataHandle(first).builder();
    shared.addElement(1).setDouble(2.0);
    VArrayDataHandle(first).set(shared);
    VArrayDataHandle(second).set(shared);
    VArrayDataHandle(second).outputValue().setDouble(9.0);
    EXPECT_EQ(elementsOf(first), (Elements{{0, 1.0}, {1, 2.0}}));
    EXPECT_EQ(elementsOf(second), (Elements{{0, 9.0}, {1, 2.0}}));
}
