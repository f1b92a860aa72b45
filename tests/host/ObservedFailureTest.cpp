#include "tests/host/Arrays.h"
#include "tests/host/Attributes.h"
#include "tests/host/RecordingObserver.h"

#include <OpenVornik/VErrorListener.h>
#include <OpenVornik/VFnEnumAttribute.h>
#include <OpenVornik/VFnGenericAttribute.h>
#include <OpenVornik/VGlobal.h>

#include <gtest/gtest.h>

namespace {

// walk.weights[] with elements 0 and 4, walk.weight and walk.limb.name
class ObservedFailure : public testing::Test {
protected:
    ObservedFailure() { fill(array, {{0, 1.0}, {4, 5.0}}); }

    const VObject weight = makeDouble("weight", 2.5);
    const VObject node = makeNode(
        "walk", {asArray(makeDouble("weights")), weight, makeCompound("limb", {makeText("name")})});
    VPlug weights = plugOf(node, "weights");
    VPlug limb = plugOf(node, "limb");
    const VDataHandle array = dataOf(node, "weights");
    VDataBlock block = blockOf(node);
    VStatus status;
};

constexpr VStatus::Code kAnswer = VStatus::kNotFound;

}  // namespace

TEST_F(ObservedFailure, GivesNullPlugsAndHandles) {
    {
        const RecordingObserver observer("VPlug::child", kAnswer);
        EXPECT_TRUE(limb.child(0, &status).isNull());
        EXPECT_EQ(status, kAnswer);
        EXPECT_TRUE(limb.child(0).isNull());
    }
    {
        const RecordingObserver observer("VPlug::VPlug", kAnswer);
        EXPECT_TRUE(VPlug(node, weight, &status).isNull());
        EXPECT_EQ(status, kAnswer);
    }
    {
        const RecordingObserver observer("VDataBlock::outputValue", kAnswer);
        EXPECT_TRUE(block.outputValue(limb, &status).isNull());
        EXPECT_EQ(status, kAnswer);
    }
    {
        const RecordingObserver observer("VDataHandle::child");
        EXPECT_TRUE(dataOf(node, "limb").child(limb.child(0)).isNull());
    }
    {
        const RecordingObserver observer("VArrayDataHandle::outputValue", kAnswer);
        EXPECT_TRUE(VArrayDataHandle(array).outputValue(&status).isNull());
        EXPECT_EQ(status, kAnswer);
    }
    EXPECT_FALSE(limb.child(0).isNull());
}

TEST_F(ObservedFailure, GivesZeroFalseAndEmptyText) {
    const VFnAttribute attribute(weight);
    const auto fails = [&](const char* operation, auto isNone) {
        status = VStatus::kSuccess;
        const RecordingObserver observer(operation, kAnswer);
        return isNone() && status == kAnswer;
    };
    EXPECT_TRUE(fails("VPlug::name", [&] { return limb.name(&status) == ""; }));
    EXPECT_TRUE(fails("VPlug::numChildren", [&] { return limb.numChildren(&status) == 0; }));
    EXPECT_TRUE(fails("VPlug::isArray", [&] { return !weights.isArray(&status); }));
    EXPECT_TRUE(fails("VFnAttribute::name", [&] { return attribute.name(&status) == ""; }));
    EXPECT_TRUE(fails("VFnAttribute::isReadable", [&] { return !attribute.isReadable(&status); }));
    EXPECT_TRUE(fails("VFnAttribute::VFnAttribute",
                      [&] { return VFnAttribute(weight, &status).object().isNull(); }));
    EXPECT_TRUE(fails("VFnDependencyNode::attribute", [&] {
        return VFnDependencyNode(node).attribute("weight", &status).isNull();
    }));
    EXPECT_TRUE(fails("VFnCompoundAttribute::child", [&] {
        return VFnCompoundAttribute(limb.attribute()).child(0, &status).isNull();
    }));
    EXPECT_TRUE(fails("VArrayDataHandle::elementCount",
                      [&] { return VArrayDataHandle(array).elementCount(&status) == 0; }));
}

TEST_F(ObservedFailure, AccessesTheSpareValue) {
    {
        const RecordingObserver observer("VDataHandle::asDouble");
        dataOf(node, "weight").asDouble() = 9.0;
        EXPECT_EQ(dataOf(node, "weight").asDouble(), 0.0);
    }
    {
        const RecordingObserver observer("VDataHandle::setDouble");
        dataOf(node, "weight").setDouble(9.0);
    }
    EXPECT_EQ(dataOf(node, "weight").asDouble(), 2.5);
}

TEST_F(ObservedFailure, ArrayStaysAsItIs) {
    VArrayDataHandle handle(array);
    VArrayDataBuilder builder = handle.builder();
    {
        const RecordingObserver observer("VArrayDataBuilder::addElement", kAnswer);
        EXPECT_TRUE(builder.addElement(1, &status).isNull());
        EXPECT_EQ(status, kAnswer);
    }
    {
        const RecordingObserver observer("VArrayDataBuilder::removeElement", kAnswer);
        EXPECT_EQ(builder.removeElement(0), kAnswer);
    }
    EXPECT_EQ(builder.elementCount(), 2U);
    builder.addElement(9);
    {
        const RecordingObserver observer("VArrayDataHandle::set", kAnswer);
        EXPECT_EQ(handle.set(builder), kAnswer);
    }
    EXPECT_EQ(elementsOf(array), (Elements{{0, 1.0}, {4, 5.0}}));
    {
        const RecordingObserver observer("VArrayDataHandle::next", kAnswer);
        EXPECT_EQ(handle.next(), kAnswer);
        EXPECT_EQ(handle.elementIndex(), 0U);
    }
    {
        const RecordingObserver observer("VArrayDataHandle::builder", kAnswer);
        VArrayDataBuilder none = handle.builder(&status);
        EXPECT_EQ(status, kAnswer);
        EXPECT_TRUE(none.addElement(0).isNull());
    }
    {
        const RecordingObserver observer("VArrayDataHandle::VArrayDataHandle", kAnswer);
        VArrayDataHandle none(array, &status);
        EXPECT_EQ(status, kAnswer);
        EXPECT_TRUE(none.outputValue().isNull());
    }
}

TEST_F(ObservedFailure, NothingIsEvaluatedOrMarked) {
    {
        const RecordingObserver observer("VDataBlock::inputValue", kAnswer);
        EXPECT_TRUE(block.inputValue(weights, &status).isNull());
        EXPECT_EQ(status, kAnswer);
    }
    {
        const RecordingObserver observer("VDataBlock::setClean", kAnswer);
        EXPECT_EQ(block.setClean(weight), kAnswer);
    }
    {
        const RecordingObserver observer("VArrayDataHandle::setAllClean", kAnswer);
        EXPECT_EQ(VArrayDataHandle(array).setAllClean(), kAnswer);
    }
    EXPECT_FALSE(block.isClean(weights.attribute()));
    EXPECT_FALSE(block.isClean(weight));
    block.setClean(weight);
    {
        const RecordingObserver observer("VDataBlock::setDirty", kAnswer);
        EXPECT_EQ(block.setDirty(weight), kAnswer);
    }
    EXPECT_TRUE(block.isClean(weight));
    const RecordingObserver observer("VDataBlock::isClean");
    EXPECT_FALSE(block.isClean(weight));
}

TEST_F(ObservedFailure, NothingIsCreatedOrChanged) {
    const auto creates = [&](const char* operation, auto create) {
        status = VStatus::kSuccess;
        const RecordingObserver observer(operation, kAnswer);
        return !create().isNull() || status != kAnswer;
    };
    EXPECT_FALSE(creates("VFnNumericAttribute::create", [&] {
        return VFnNumericAttribute().create("a", "a", VFnNumericData::kDouble, 0.0, &status);
    }));
    EXPECT_FALSE(creates("VFnTypedAttribute::create", [&] {
        return VFnTypedAttribute().create("a", "a", VFnData::kString, VObject::kNullObj, &status);
    }));
    EXPECT_FALSE(creates("VFnMatrixAttribute::create", [&] {
        return VFnMatrixAttribute().create("a", "a", VFnMatrixAttribute::kDouble, &status);
    }));
    EXPECT_FALSE(creates("VFnEnumAttribute::create",
                         [&] { return VFnEnumAttribute().create("a", "a", 0, &status); }));
    EXPECT_FALSE(creates("VFnGenericAttribute::create",
                         [&] { return VFnGenericAttribute().create("a", "a", &status); }));
    EXPECT_FALSE(creates("VFnCompoundAttribute::create",
                         [&] { return VFnCompoundAttribute().create("a", "a", &status); }));
    EXPECT_FALSE(creates("VFnDependencyNode::create",
                         [&] { return VFnDependencyNode().create("a", &status); }));
    {
        const RecordingObserver observer("VFnAttribute::setKeyable", kAnswer);
        EXPECT_EQ(VFnAttribute(weight).setKeyable(true), kAnswer);
    }
    EXPECT_FALSE(VFnAttribute(weight).isKeyable());
    VFnCompoundAttribute compound(makeCompound("new", {}));
    {
        const RecordingObserver observer("VFnCompoundAttribute::addChild", kAnswer);
        EXPECT_EQ(compound.addChild(makeDouble("a")), kAnswer);
    }
    EXPECT_EQ(compound.numChildren(), 0U);
}

TEST_F(ObservedFailure, ModifierQueuesNothingAndKeepsItsQueue) {
    VDGModifier modifier;
    {
        const RecordingObserver observer("VDGModifier::addAttribute", kAnswer);
        EXPECT_EQ(modifier.addAttribute(node, makeDouble("a")), kAnswer);
    }
    modifier.addAttribute(node, makeDouble("b"));
    {
        const RecordingObserver observer("VDGModifier::doIt", kAnswer);
        EXPECT_EQ(modifier.doIt(), kAnswer);
    }
    EXPECT_EQ(VFnDependencyNode(node).attributeCount(), 3U);
    EXPECT_EQ(modifier.doIt(), VStatus::kSuccess);
    EXPECT_TRUE(VFnDependencyNode(node).attribute("a").isNull());
    EXPECT_FALSE(VFnDependencyNode(node).attribute("b").isNull());
}

TEST_F(ObservedFailure, TextIsNotFormattedAndErrorsAreNotDisplayed) {
    VString text("before");
    int shown = 0;
    const VErrorListener listener([&](const VString&) { ++shown; });
    {
        const RecordingObserver observer("VString::format", kAnswer);
        EXPECT_EQ(text.format("^1s", "a"), kAnswer);
    }
    EXPECT_EQ(text, "before");
    {
        const RecordingObserver observer("VGlobal::displayError");
        VGlobal::displayError("wrong");
    }
    EXPECT_EQ(shown, 0);
    VGlobal::displayError("wrong");
    EXPECT_EQ(shown, 1);
}
