#include "tests/host/Arrays.h"
#include "tests/host/Attributes.h"
#include "tests/support/AllocationCount.h"

#include <cstdint>

#include <gtest/gtest.h>

namespace {

// How often `work` asks for memory.
template <typename Work>
std::uint64_t allocationsOf(Work work) {
    const TestSupport::AllocationCount count;
    work();
    return count.allocations();
}

}  // namespace

TEST(HostAllocation, WalkingDataAllocatesNothing) {
    const VObject node = makeNode("walk", {asArray(makeCompound("limbs", {makeMatrix("frame")}))});
    VPlug limbs = plugOf(node, "limbs");
    VArrayDataHandle handle(dataOf(node, "limbs"));
    VArrayDataBuilder builder = handle.builder();
    for (unsigned i = 0; i < 8; ++i) builder.addElement(i);
    handle.set(builder);
    VDataBlock block = blockOf(node);
    block.inputValue(limbs);

    EXPECT_EQ(allocationsOf([&] {
                  VArrayDataHandle walk(block.inputValue(limbs));
                  for (unsigned i = 0; i < walk.elementCount(); ++i) {
                      VPlug frame = limbs.elementByLogicalIndex(i).child(0);
                      walk.inputValue().child(frame).asMatrix()[0][3] = 1.0;
                      walk.outputValue().child(frame).setMatrix(VMatrix());
                      walk.next();
                  }
                  walk.jumpToElement(3);
              }),
              0U);
}

TEST(HostAllocation, AddedElementAllocatesItsBlockAndAnOwnOneNothing) {
    const VObject node = makeNode("walk", {asArray(makeDouble("weights"))});
    VArrayDataBuilder builder = VArrayDataHandle(dataOf(node, "weights")).builder();
    for (unsigned i = 0; i < 5; ++i) builder.addElement(i);
    builder.removeElement(4);
    EXPECT_EQ(allocationsOf([&] { builder.addElement(4); }), 1U);
    EXPECT_EQ(allocationsOf([&] { builder.addElement(2).setDouble(3.0); }), 0U);
}

TEST(HostAllocation, BuilderCopiesNoUntouchedElements) {
    const VObject node = makeNode("walk", {asArray(makeDouble("weights"))});
    const VDataHandle data = dataOf(node, "weights");
    VArrayDataHandle handle(data);
    VArrayDataBuilder first = handle.builder();
    for (unsigned i = 0; i < 100; ++i) first.addElement(i);
    handle.set(first);
    EXPECT_LT(allocationsOf([&] {
                  VArrayDataBuilder builder = handle.builder();
                  builder.addElement(7);
                  handle.set(builder);
              }),
              10U);
}
