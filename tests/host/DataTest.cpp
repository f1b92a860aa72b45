#include "tests/host/Arrays.h"
#include "tests/host/Attributes.h"

#include <OpenVornik/VFnEnumAttribute.h>
#include <OpenVornik/VFnGenericAttribute.h>

#include <thread>
#include <type_traits>

#include <gtest/gtest.h>

static_assert(std::is_trivially_copyable_v<VDataHandle>);
static_assert(std::is_trivially_copyable_v<VDataBlock>);

TEST(Data, LeavesStartAtTheirDefaults) {
    const VObject node = makeNode(
        "walk",
        {makeDouble("weight", 2.5), makeNumber("on", VFnNumericData::kBoolean, 1.0),
         makeNumber("count", VFnNumericData::kInt, -7.0), makeText("name"), makeMatrix("frame"),
         VFnEnumAttribute().create("mode", "mode", 3), asArray(makeDouble("weights"))});
    EXPECT_EQ(dataOf(node, "weight").asDouble(), 2.5);
    EXPECT_TRUE(dataOf(node, "on").asBool());
    EXPECT_EQ(dataOf(node, "count").asInt(), -7);
    EXPECT_EQ(dataOf(node, "name").asString(), "");
    EXPECT_EQ(dataOf(node, "frame").asMatrix(), VMatrix());
    EXPECT_EQ(dataOf(node, "mode").asShort(), 3);
    EXPECT_EQ(VArrayDataHandle(dataOf(node, "weights")).elementCount(), 0U);
}

TEST(Data, HandleStaysValidWhenTheNodeGetsAnAttribute) {
    const VObject node = makeNode("walk", {makeDouble("a")});
    VDataHandle handle = dataOf(node, "a");
    for (const char* name : {"b", "c", "d", "e", "f"}) addTo(node, makeText(name));
    handle.setDouble(3.0);
    EXPECT_EQ(dataOf(node, "a").asDouble(), 3.0);
}

TEST(Data, WrittenValuesOfAllSizesAreKeptSideBySide) {
    const VObject node = makeNode(
        "walk", {makeCompound("limb", {makeNumber("on", VFnNumericData::kBoolean), makeMatrix("m"),
                                       VFnEnumAttribute().create("mode", "mode"), makeText("text"),
                                       makeNumber("i", VFnNumericData::kInt), makeDouble("d")})});
    VPlug plug = plugOf(node, "limb");
    const VDataHandle limb = dataOf(node, "limb");
    constexpr const char* kText = "a text that is longer than any string keeps in itself";
    VMatrix matrix;
    matrix[3][0] = 5.0;
    limb.child(plug.child(0)).setBool(true);
    limb.child(plug.child(1)).setMatrix(matrix);
    limb.child(plug.child(2)).setShort(-6);
    limb.child(plug.child(3)).setString(kText);
    limb.child(plug.child(4)).setInt(7);
    limb.child(plug.child(5)).setDouble(8.0);
    EXPECT_TRUE(limb.child(plug.child(0)).asBool());
    EXPECT_EQ(limb.child(plug.child(1)).asMatrix(), matrix);
    EXPECT_EQ(limb.child(plug.child(2)).asShort(), -6);
    EXPECT_EQ(limb.child(plug.child(3)).asString(), kText);
    EXPECT_EQ(limb.child(plug.child(4)).asInt(), 7);
    EXPECT_EQ(limb.child(plug.child(5)).asDouble(), 8.0);
    limb.child(plug.child(1)).asMatrix()[2][3] = 10.0;
    EXPECT_EQ(dataOf(node, "limb").child(plug.child(1)).asMatrix()[2][3], 10.0);
}

TEST(Data, BooleansSideBySideAreKeptApart) {
    const VObject node =
        makeNode("walk", {makeCompound("flags", {makeNumber("a", VFnNumericData::kBoolean),
                                                 makeNumber("b", VFnNumericData::kBoolean)})});
    VPlug plug = plugOf(node, "flags");
    const VDataHandle flags = dataOf(node, "flags");
    flags.child(plug.child(1)).setBool(true);
    EXPECT_FALSE(flags.child(plug.child(0)).asBool());
    EXPECT_TRUE(flags.child(plug.child(1)).asBool());
}

TEST(Data, ChildIsFoundByAttributeWhateverElementThePlugStandsIn) {
    const VObject node = makeNode("walk", {asArray(makeCompound("limbs", {makeDouble("weight")}))});
    VPlug array = plugOf(node, "limbs");
    VArrayDataHandle handle(dataOf(node, "limbs"));
    VArrayDataBuilder builder = handle.builder();
    builder.addElement(5).child(array.elementByLogicalIndex(0).child(0)).setDouble(1.25);
    handle.set(builder);
    VPlug elsewhere = array.elementByLogicalIndex(99).child(0);
    EXPECT_EQ(handle.outputValue().child(elsewhere).asDouble(), 1.25);
    VPlug there = array.elementByLogicalIndex(5).child(0);
    EXPECT_EQ(blockOf(node).outputValue(there).asDouble(), 1.25);
}

TEST(Data, ChildOfAnotherCompoundIsANullHandle) {
    const VObject node = makeNode(
        "walk", {makeCompound("limb", {makeDouble("a")}), makeCompound("other", {makeDouble("a")}),
                 asArray(makeCompound("limbs", {makeDouble("a")}))});
    VPlug limb = plugOf(node, "limb");
    EXPECT_TRUE(dataOf(node, "limb").child(plugOf(node, "other").child(0)).isNull());
    EXPECT_TRUE(dataOf(node, "limb").child(limb).isNull());
    EXPECT_TRUE(dataOf(node, "limb").child(VPlug()).isNull());
    EXPECT_TRUE(VDataHandle().child(limb.child(0)).isNull());
    EXPECT_TRUE(VDataHandle().child(limb).isNull());
    VPlug inElement = plugOf(node, "limbs").elementByLogicalIndex(0).child(0);
    EXPECT_TRUE(dataOf(node, "limbs").child(inElement).isNull());
}

TEST(Data, AccessToANullHandleGivesTheDefaultAndLosesWhatIsWritten) {
    VDataHandle none;
    EXPECT_TRUE(none.isNull());
    none.asDouble() = 4.0;
    none.asString() = "lost";
    none.asMatrix()[0][0] = 9.0;
    none.setInt(4);
    none.setBool(true);
    none.setShort(4);
    EXPECT_EQ(none.asDouble(), 0.0);
    EXPECT_EQ(none.asString(), "");
    EXPECT_EQ(none.asMatrix(), VMatrix());
    EXPECT_EQ(none.asInt(), 0);
    EXPECT_FALSE(none.asBool());
    EXPECT_EQ(none.asShort(), 0);
}

TEST(Data, AccessAsAnotherKindTouchesNothing) {
    const VObject node = makeNode("walk", {makeDouble("weight", 2.5), asArray(makeText("names")),
                                           makeCompound("limb", {makeDouble("a")})});
    VDataHandle weight = dataOf(node, "weight");
    weight.asMatrix()[0][0] = 7.0;
    weight.asString() = "text";
    weight.setInt(4);
    weight.setMatrix(VMatrix());
    EXPECT_EQ(weight.asDouble(), 2.5);
    EXPECT_EQ(weight.asString(), "");
    dataOf(node, "names").setString("no element");
    EXPECT_EQ(VArrayDataHandle(dataOf(node, "names")).elementCount(), 0U);
    EXPECT_EQ(dataOf(node, "limb").asDouble(), 0.0);
}

TEST(Data, SpareValueBelongsToItsThread) {
    double* here = &VDataHandle().asDouble();
    double* there = nullptr;
    std::thread([&] { there = &VDataHandle().asDouble(); }).join();
    EXPECT_NE(here, there);
}

TEST(Data, GenericDataHoldsNothingUnlessItAcceptsText) {
    VFnGenericAttribute accepting;
    accepting.create("text", "text");
    accepting.addDataAccept(VFnData::kString);
    const VObject empty = VFnGenericAttribute().create("object", "object");
    const VObject node = makeNode("walk", {empty, accepting.object()});
    EXPECT_FALSE(dataOf(node, "object").isNull());
    dataOf(node, "object").setString("lost");
    EXPECT_EQ(dataOf(node, "object").asString(), "");
    dataOf(node, "text").setString("kept");
    EXPECT_EQ(dataOf(node, "text").asString(), "kept");
}

TEST(DataBlock, BlockFailsForPlugsOfOtherNodes) {
    const VObject node = makeNode("walk", {makeDouble("a")});
    const VObject other = makeNode("run", {makeDouble("a")});
    const VPlug elsewhere = plugOf(other, "a");
    VDataBlock block = blockOf(node);
    for (const VPlug& plug : {elsewhere, VPlug()}) {
        EXPECT_TRUE(fails([&](VStatus* s) { return block.inputValue(plug, s).isNull(); }));
        EXPECT_TRUE(fails([&](VStatus* s) { return block.outputValue(plug, s).isNull(); }));
    }
    EXPECT_EQ(block.setClean(elsewhere.attribute()), VStatus::kInvalidParameter);
    EXPECT_EQ(block.setDirty(VObject::kNullObj), VStatus::kInvalidParameter);
    EXPECT_FALSE(block.isClean(elsewhere.attribute()));
}

TEST(DataBlock, BlockOfNothingFails) {
    const VObject node = makeNode("walk", {makeDouble("a")});
    VDataBlock none;
    EXPECT_TRUE(fails([&](VStatus* s) { return none.inputValue(VPlug(), s).isNull(); }));
    EXPECT_TRUE(fails([&](VStatus* s) { return none.outputValue(plugOf(node, "a"), s).isNull(); }));
    EXPECT_EQ(none.setClean(makeDouble("a")), VStatus::kInvalidParameter);
    EXPECT_EQ(none.setDirty(makeDouble("a")), VStatus::kInvalidParameter);
    EXPECT_FALSE(none.isClean(makeDouble("a")));
}

TEST(DataBlock, AbsentElementOnThePathIsNotFound) {
    const VObject node = makeNode("walk", {asArray(makeCompound("limbs", {makeDouble("a")}))});
    VDataBlock block = blockOf(node);
    VPlug absent = plugOf(node, "limbs").elementByLogicalIndex(1);
    EXPECT_TRUE(fails([&](VStatus* s) { return block.outputValue(absent, s).isNull(); },
                      VStatus::kNotFound));
    EXPECT_TRUE(fails([&](VStatus* s) { return block.inputValue(absent.child(0), s).isNull(); },
                      VStatus::kNotFound));
    EXPECT_EQ(VArrayDataHandle(dataOf(node, "limbs")).elementCount(), 0U);
}
