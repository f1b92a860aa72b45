#include "tests/host/Arrays.h"
#include "tests/host/Attributes.h"
#include "tests/host/RecordingObserver.h"

#include <OpenVornik/VErrorListener.h>
#include <OpenVornik/VFnEnumAttribute.h>
#include <OpenVornik/VFnGenericAttribute.h>
#include <OpenVornik/VGlobal.h>

#include <functional>
#include <stdexcept>
#include <string_view>

#include <gtest/gtest.h>

namespace {

constexpr VStatus::Code kAnswer = VStatus::kNotFound;

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

    // Whether `call` gives nothing, and fills `status`, while `operation` is made to fail.
    template <typename Call>
    bool fails(const char* operation, Call call) {
        status = VStatus::kSuccess;
        const RecordingObserver observer(operation, kAnswer);
        return call() && status == kAnswer;
    }
    // What `call` returns while `operation` is made to fail.
    template <typename Call>
    auto failing(const char* operation, Call call) {
        const RecordingObserver observer(operation, kAnswer);
        return call();
    }
};

class ThrowingObserver : public OpenVornik::Testing::CallObserver {
public:
    // Throws at every call of `operation`, or at every call.
    explicit ThrowingObserver(std::string_view operation = {}) : m_operation(operation) {}

    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        if (m_operation.empty() || call.operation == m_operation) throw std::runtime_error("no");
        return VStatus::kSuccess;
    }

private:
    std::string_view m_operation;
};

}  // namespace

TEST_F(ObservedFailure, FailedCallGivesNullPlugsHandlesAndObjects) {
    EXPECT_TRUE(fails("VPlug::child", [&] { return limb.child(0, &status).isNull(); }));
    EXPECT_TRUE(failing("VPlug::child", [&] { return limb.child(0).isNull(); }));
    EXPECT_TRUE(fails("VPlug::VPlug", [&] { return VPlug(node, weight, &status).isNull(); }));
    EXPECT_TRUE(fails("VDataBlock::outputValue",
                      [&] { return block.outputValue(limb, &status).isNull(); }));
    EXPECT_TRUE(failing("VDataHandle::child",
                        [&] { return dataOf(node, "limb").child(limb.child(0)).isNull(); }));
    EXPECT_TRUE(fails("VArrayDataHandle::outputValue",
                      [&] { return VArrayDataHandle(array).outputValue(&status).isNull(); }));
    EXPECT_TRUE(fails("VFnAttribute::VFnAttribute",
                      [&] { return VFnAttribute(weight, &status).object().isNull(); }));
    EXPECT_TRUE(fails("VFnDependencyNode::attribute", [&] {
        return VFnDependencyNode(node).attribute("weight", &status).isNull();
    }));
    EXPECT_TRUE(fails("VFnCompoundAttribute::child", [&] {
        return VFnCompoundAttribute(limb.attribute()).child(0, &status).isNull();
    }));
    EXPECT_FALSE(limb.child(0).isNull());
}

TEST_F(ObservedFailure, FailedCallGivesZeroFalseAndEmptyText) {
    const VFnAttribute attribute(weight);
    EXPECT_TRUE(fails("VPlug::name", [&] { return limb.name(&status) == ""; }));
    EXPECT_TRUE(fails("VPlug::numChildren", [&] { return limb.numChildren(&status) == 0; }));
    EXPECT_TRUE(fails("VPlug::isArray", [&] { return !weights.isArray(&status); }));
    EXPECT_TRUE(fails("VFnAttribute::name", [&] { return attribute.name(&status) == ""; }));
    EXPECT_TRUE(fails("VFnAttribute::isReadable", [&] { return !attribute.isReadable(&status); }));
    EXPECT_TRUE(fails("VArrayDataHandle::elementCount",
                      [&] { return VArrayDataHandle(array).elementCount(&status) == 0; }));
}

TEST_F(ObservedFailure, FailedAccessGivesTheSpareValue) {
    EXPECT_EQ(failing("VDataHandle::asDouble",
                      [&] {
                          dataOf(node, "weight").asDouble() = 9.0;
                          return dataOf(node, "weight").asDouble();
                      }),
              0.0);
    failing("VDataHandle::setDouble", [&] { dataOf(node, "weight").setDouble(9.0); });
    EXPECT_EQ(dataOf(node, "weight").asDouble(), 2.5);
}

TEST_F(ObservedFailure, FailedArrayCallLeavesTheArrayAndItsHandleAsTheyAre) {
    VArrayDataHandle handle(array);
    VArrayDataBuilder builder = handle.builder();
    EXPECT_TRUE(fails("VArrayDataBuilder::addElement",
                      [&] { return builder.addElement(1, &status).isNull(); }));
    EXPECT_EQ(failing("VArrayDataBuilder::removeElement", [&] { return builder.removeElement(0); }),
              kAnswer);
    EXPECT_EQ(builder.elementCount(), 2U);
    builder.addElement(9);
    EXPECT_EQ(failing("VArrayDataHandle::set", [&] { return handle.set(builder); }), kAnswer);
    EXPECT_EQ(elementsOf(array), (Elements{{0, 1.0}, {4, 5.0}}));
    EXPECT_EQ(failing("VArrayDataHandle::next", [&] { return handle.next(); }), kAnswer);
    EXPECT_EQ(handle.elementIndex(), 0U);
    EXPECT_TRUE(fails("VArrayDataHandle::builder",
                      [&] { return handle.builder(&status).addElement(0).isNull(); }));
    EXPECT_TRUE(fails("VArrayDataHandle::VArrayDataHandle",
                      [&] { return VArrayDataHandle(array, &status).outputValue().isNull(); }));
}

TEST_F(ObservedFailure, FailedBlockCallEvaluatesAndMarksNothing) {
    EXPECT_TRUE(fails("VDataBlock::inputValue",
                      [&] { return block.inputValue(weights, &status).isNull(); }));
    EXPECT_EQ(failing("VDataBlock::setClean", [&] { return block.setClean(weight); }), kAnswer);
    EXPECT_EQ(failing("VArrayDataHandle::setAllClean",
                      [&] { return VArrayDataHandle(array).setAllClean(); }),
              kAnswer);
    EXPECT_FALSE(block.isClean(weights.attribute()));
    EXPECT_FALSE(block.isClean(weight));
    block.setClean(weight);
    EXPECT_EQ(failing("VDataBlock::setDirty", [&] { return block.setDirty(weight); }), kAnswer);
    EXPECT_TRUE(block.isClean(weight));
    EXPECT_FALSE(failing("VDataBlock::isClean", [&] { return block.isClean(weight); }));
}

TEST_F(ObservedFailure, FailedCallCreatesAndChangesNothing) {
    EXPECT_TRUE(fails("VFnNumericAttribute::create", [&] {
        const auto type = VFnNumericData::kDouble;
        return VFnNumericAttribute().create("a", "a", type, 0.0, &status).isNull();
    }));
    EXPECT_TRUE(fails("VFnTypedAttribute::create", [&] {
        const VObject none;
        return VFnTypedAttribute().create("a", "a", VFnData::kString, none, &status).isNull();
    }));
    EXPECT_TRUE(fails("VFnMatrixAttribute::create", [&] {
        const auto type = VFnMatrixAttribute::kDouble;
        return VFnMatrixAttribute().create("a", "a", type, &status).isNull();
    }));
    EXPECT_TRUE(fails("VFnEnumAttribute::create",
                      [&] { return VFnEnumAttribute().create("a", "a", 0, &status).isNull(); }));
    EXPECT_TRUE(fails("VFnGenericAttribute::create",
                      [&] { return VFnGenericAttribute().create("a", "a", &status).isNull(); }));
    EXPECT_TRUE(fails("VFnCompoundAttribute::create",
                      [&] { return VFnCompoundAttribute().create("a", "a", &status).isNull(); }));
    EXPECT_TRUE(fails("VFnDependencyNode::create",
                      [&] { return VFnDependencyNode().create("a", &status).isNull(); }));
    EXPECT_EQ(
        failing("VFnAttribute::setKeyable", [&] { return VFnAttribute(weight).setKeyable(true); }),
        kAnswer);
    EXPECT_FALSE(VFnAttribute(weight).isKeyable());
    VFnCompoundAttribute compound(makeCompound("new", {}));
    EXPECT_EQ(failing("VFnCompoundAttribute::addChild",
                      [&] { return compound.addChild(makeDouble("a")); }),
              kAnswer);
    EXPECT_EQ(compound.numChildren(), 0U);
}

TEST_F(ObservedFailure, FailedModifierCallQueuesNothingAndKeepsTheQueue) {
    VDGModifier modifier;
    EXPECT_EQ(failing("VDGModifier::addAttribute",
                      [&] { return modifier.addAttribute(node, makeDouble("a")); }),
              kAnswer);
    modifier.addAttribute(node, makeDouble("b"));
    EXPECT_EQ(failing("VDGModifier::doIt", [&] { return modifier.doIt(); }), kAnswer);
    EXPECT_EQ(VFnDependencyNode(node).attributeCount(), 3U);
    EXPECT_EQ(modifier.doIt(), VStatus::kSuccess);
    EXPECT_TRUE(VFnDependencyNode(node).attribute("a").isNull());
    EXPECT_FALSE(VFnDependencyNode(node).attribute("b").isNull());
}

TEST_F(ObservedFailure, FailedCallFormatsNoTextAndDisplaysNoError) {
    VString text("before");
    int shown = 0;
    const VErrorListener listener([&](const VString&) { ++shown; });
    EXPECT_EQ(failing("VString::format", [&] { return text.format("^1s", "a"); }), kAnswer);
    EXPECT_EQ(text, "before");
    failing("VGlobal::displayError", [] { VGlobal::displayError("wrong"); });
    EXPECT_EQ(shown, 0);
    VGlobal::displayError("wrong");
    EXPECT_EQ(shown, 1);
}

TEST_F(ObservedFailure, ExceptionOfTheObserverReachesTheCallerAndTheCallChangesNothing) {
    VArrayDataHandle handle(array);
    VArrayDataBuilder builder = handle.builder();
    VDataHandle number = dataOf(node, "weight");
    VFnAttribute attribute(weight);
    VDGModifier modifier;
    modifier.addAttribute(node, makeDouble("new"));
    VString text("before");
    const std::function<void()> calls[] = {
        [&] { limb.child(0, &status); },
        [&] { weights.elementByLogicalIndex(1, &status); },
        [&] { VPlug(node, weight, &status); },
        [&] { block.inputValue(weights, &status); },
        [&] { block.setClean(weight); },
        [&] { number.child(limb); },
        [&] { number.asDouble() = 9; },
        [&] { number.setDouble(9); },
        [&] { VArrayDataHandle(array, &status); },
        [&] { handle.next(); },
        [&] { builder.addElement(7, &status); },
        [&] { builder.removeElement(0); },
        [&] { attribute.setKeyable(true); },
        [&] { modifier.doIt(); },
        [&] { text.format("^1s", "after"); },
        [&] { VGlobal::displayError("wrong"); },
    };
    status = VStatus::kNotFound;
    {
        const ThrowingObserver observer;
        for (const auto& call : calls) EXPECT_THROW(call(), std::runtime_error);
    }
    EXPECT_EQ(status, VStatus::kNotFound);
    EXPECT_FALSE(block.isClean(weight));
    EXPECT_EQ(number.asDouble(), 2.5);
    EXPECT_EQ(handle.elementIndex(), 0U);
    EXPECT_EQ(builder.elementCount(), 2U);
    EXPECT_FALSE(attribute.isKeyable());
    EXPECT_EQ(text, "before");
    EXPECT_EQ(modifier.doIt(), VStatus::kSuccess);
    EXPECT_FALSE(VFnDependencyNode(node).attribute("new").isNull()) << "it was still queued";
}

TEST_F(ObservedFailure, ExceptionInAComputationEndsTheEvaluationAndLeavesItsAttributesDirty) {
    const VObject source = makeNode("source", {asOutput(makeDouble("out"))});
    VFnDependencyNode(source).setCompute([](VPlug plug, VDataBlock& data) {
        data.outputValue(plug).setDouble(2.0);
        return VStatus();
    });
    connect(plugOf(source, "out"), plugOf(node, "weight"));
    const VPlug plug = plugOf(node, "weight");
    {
        const ThrowingObserver observer("VDataHandle::setDouble");
        EXPECT_THROW(block.inputValue(plug), std::runtime_error);
    }
    EXPECT_FALSE(block.isClean(weight));
    EXPECT_FALSE(blockOf(source).isClean(plugOf(source, "out").attribute()));
    EXPECT_EQ(block.inputValue(plug).asDouble(), 2.0);
}
