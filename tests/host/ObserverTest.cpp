#include "tests/host/Arrays.h"
#include "tests/host/Attributes.h"
#include "tests/host/RecordingObserver.h"

#include <OpenVornik/VErrorListener.h>
#include <OpenVornik/VFnEnumAttribute.h>
#include <OpenVornik/VGlobal.h>

#include <thread>

#include <gtest/gtest.h>

using Operations = std::vector<std::string>;

namespace {

// walk.rig.limbs[].names[] and walk.rig.weight
class Observer : public testing::Test {
protected:
    const VObject limbs =
        asArray(makeCompound("limbs", {asArray(makeText("names")), makeDouble("length")}));
    const VObject node = makeNode("walk", {makeCompound("rig", {limbs, makeDouble("weight")})});
    VPlug rig = plugOf(node, "rig");
    VDataBlock block = blockOf(node);
};

}  // namespace

TEST_F(Observer, IsToldOfEachCallInOrder) {
    RecordingObserver observer;
    VPlug weight = rig.child(1);
    VDataHandle data = block.outputValue(rig);
    data.child(weight).setDouble(1.5);
    block.setClean(weight.attribute());
    EXPECT_EQ(observer.operations(),
              (Operations{"VPlug::child", "VDataBlock::outputValue", "VDataHandle::child",
                          "VDataHandle::setDouble", "VPlug::attribute", "VDataBlock::setClean"}));
}

TEST_F(Observer, IsToldSubjectIndexAndArgument) {
    RecordingObserver observer;
    VStatus status;
    VPlug array = rig.child(0, &status);
    array.elementByLogicalIndex(3);
    block.inputValue(rig).child(array);
    block.isClean(limbs);
    const auto& calls = observer.calls;
    ASSERT_EQ(calls.size(), 5U);
    EXPECT_EQ(calls[0].subject, "walk.rig");
    EXPECT_EQ(calls[0].index, 0);
    EXPECT_EQ(calls[0].argument, "");
    EXPECT_TRUE(calls[0].statusRequested);
    EXPECT_EQ(calls[1].subject, "walk.rig.limbs");
    EXPECT_EQ(calls[1].index, 3);
    EXPECT_FALSE(calls[1].statusRequested);
    EXPECT_EQ(calls[2].subject, "walk");
    EXPECT_EQ(calls[2].index, -1);
    EXPECT_EQ(calls[2].argument, "walk.rig");
    EXPECT_EQ(calls[3].subject, "rig");
    EXPECT_EQ(calls[3].argument, "walk.rig.limbs");
    EXPECT_EQ(calls[4].argument, "limbs");
}

TEST_F(Observer, TellsDataByItsPathFromTheTopLevel) {
    VPlug names = rig.child(0).elementByLogicalIndex(0).child(0);
    VArrayDataHandle array(block.outputValue(rig.child(0)));
    RecordingObserver observer;
    VArrayDataBuilder builder = array.builder();
    VDataHandle element = builder.addElement(4);
    VArrayDataHandle inner(element.child(names));
    VArrayDataBuilder innerBuilder = inner.builder();
    innerBuilder.addElement(0).setString("toe");
    inner.set(innerBuilder);
    VDataHandle().asInt();
    const auto& calls = observer.calls;
    ASSERT_EQ(calls.size(), 9U);
    EXPECT_EQ(calls[0].operation, "VArrayDataHandle::builder");
    EXPECT_EQ(calls[0].subject, "rig.limbs");
    EXPECT_EQ(calls[1].operation, "VArrayDataBuilder::addElement");
    EXPECT_EQ(calls[1].subject, "rig.limbs");
    EXPECT_EQ(calls[1].index, 4);
    EXPECT_EQ(calls[2].subject, "rig.limbs[]");
    EXPECT_EQ(calls[2].argument, "walk.rig.limbs[0].names");
    EXPECT_EQ(calls[3].operation, "VArrayDataHandle::VArrayDataHandle");
    EXPECT_EQ(calls[3].subject, "rig.limbs[].names");
    EXPECT_EQ(calls[6].operation, "VDataHandle::setString");
    EXPECT_EQ(calls[6].subject, "rig.limbs[].names[]");
    EXPECT_EQ(calls[6].argument, "toe");
    EXPECT_EQ(calls[7].operation, "VArrayDataHandle::set");
    EXPECT_EQ(calls[8].subject, "");
}

TEST_F(Observer, TellsArgumentsAsText) {
    const VErrorListener listener([](const VString&) {});
    RecordingObserver observer;
    VFnNumericAttribute numeric;
    numeric.create("weight", "w", VFnNumericData::kDouble, 0.5);
    numeric.setWritable(false);
    VFnEnumAttribute mode;
    mode.create("mode", "m");
    mode.addField("slow", -3);
    VString().format("^1s on ^2s", "port", "walk");
    VGlobal::displayError(VString("message"));
    VDGModifier modifier;
    modifier.addAttribute(node, mode.object());
    modifier.connect(rig, rig);
    VFnDependencyNode(node).attribute("rig");
    const auto& calls = observer.calls;
    ASSERT_EQ(calls.size(), 10U);
    EXPECT_EQ(calls[0].subject, "");
    EXPECT_EQ(calls[0].argument, "weight, w, 14, 0.5");
    EXPECT_EQ(calls[1].operation, "VFnAttribute::setWritable");
    EXPECT_EQ(calls[1].subject, "weight");
    EXPECT_EQ(calls[1].argument, "false");
    EXPECT_EQ(calls[3].argument, "slow, -3");
    EXPECT_EQ(calls[4].argument, "^1s on ^2s, port, walk");
    EXPECT_EQ(calls[5].operation, "VGlobal::displayError");
    EXPECT_EQ(calls[5].argument, "message");
    EXPECT_EQ(calls[6].subject, "walk");
    EXPECT_EQ(calls[6].argument, "mode");
    EXPECT_EQ(calls[7].subject, "walk.rig");
    EXPECT_EQ(calls[7].argument, "walk.rig");
    EXPECT_EQ(calls[8].operation, "VFnDependencyNode::VFnDependencyNode");
    EXPECT_EQ(calls[8].subject, "walk");
    EXPECT_EQ(calls[9].argument, "rig");
}

TEST_F(Observer, IsNotToldOfWhatValuesDo) {
    RecordingObserver observer;
    VPlug copy = rig;
    copy = VPlug();
    const bool differs = copy != rig && copy.isNull();
    const VString text("walk");
    const VMatrix matrix;
    const VObject object = node;
    EXPECT_TRUE(differs && text == "walk" && matrix == VMatrix() && object == node);
    EXPECT_TRUE(observer.calls.empty());
}

TEST_F(Observer, IsToldOfCallsOnNothing) {
    RecordingObserver observer;
    VPlug().child(2);
    VDataBlock().outputValue(VPlug());
    VFnAttribute(VObject::kNullObj).name();
    ASSERT_EQ(observer.calls.size(), 4U);
    for (const auto& call : observer.calls) EXPECT_EQ(call.subject, "") << call.operation;
}

TEST_F(Observer, NewestAloneIsToldUntilItGoes) {
    RecordingObserver outer;
    {
        RecordingObserver inner;
        rig.child(0);
        EXPECT_EQ(inner.calls.size(), 1U);
        EXPECT_TRUE(outer.calls.empty());
    }
    rig.child(1);
    EXPECT_EQ(outer.calls.size(), 1U);
}

TEST_F(Observer, SeesItsOwnThreadOnly) {
    RecordingObserver observer;
    std::thread([this] { rig.child(0); }).join();
    EXPECT_TRUE(observer.calls.empty());
    std::vector<std::string> there;
    std::thread([&] {
        RecordingObserver other;
        rig.child(0);
        there = other.operations();
    }).join();
    EXPECT_EQ(there, Operations{"VPlug::child"});
    EXPECT_TRUE(observer.calls.empty());
}

TEST_F(Observer, IsNotToldOfWhatTheHostDoesInside) {
    const auto limb = [] { return asArray(makeCompound("limb", {makeText("name")})); };
    const VObject source = makeNode("source", {limb()});
    const VObject target = makeNode("target", {limb()});
    VPlug from = plugOf(source, "limb");
    VPlug to = plugOf(target, "limb");
    VDataBlock there = blockOf(target);
    RecordingObserver observer;
    VDGModifier modifier;
    modifier.connect(from, to);
    modifier.doIt();
    there.inputValue(to);
    EXPECT_EQ(observer.operations(),
              (Operations{"VDGModifier::connect", "VDGModifier::doIt", "VDataBlock::inputValue"}));
}

TEST_F(Observer, IsToldOfWhatAComputationCalls) {
    const VObject source = makeNode("source", {asOutput(makeDouble("out"))});
    VFnDependencyNode(source).setCompute([](VPlug plug, VDataBlock& data) {
        data.outputValue(plug).setDouble(2.0);
        return VStatus();
    });
    const VObject target = makeNode("target", {makeDouble("in")});
    connect(plugOf(source, "out"), plugOf(target, "in"));
    VPlug in = plugOf(target, "in");
    VDataBlock there = blockOf(target);
    RecordingObserver observer;
    there.inputValue(in);
    EXPECT_EQ(observer.operations(),
              (Operations{"VDataBlock::inputValue", "VDataBlock::outputValue",
                          "VDataHandle::setDouble"}));
    EXPECT_EQ(observer.calls[1].subject, "source");
}

TEST_F(Observer, IsNotToldOfItsOwnCalls) {
    class Curious : public OpenVornik::Testing::CallObserver {
    public:
        explicit Curious(VPlug plug) : m_plug(plug) {}
        VStatus::Code called(const OpenVornik::Testing::Call&) override {
            ++count;
            name = m_plug.name();
            return VStatus::kSuccess;
        }
        int count = 0;
        VString name;

    private:
        VPlug m_plug;
    } observer(rig);
    rig.child(0);
    EXPECT_EQ(observer.count, 1);
    EXPECT_EQ(observer.name, "walk.rig");
}
