#include "tests/host/Arrays.h"
#include "tests/host/Attributes.h"
#include "tests/host/RecordingObserver.h"

#include <OpenVornik/VErrorListener.h>
#include <OpenVornik/VFnEnumAttribute.h>
#include <OpenVornik/VGlobal.h>

#include <thread>

#include <gtest/gtest.h>

using Texts = std::vector<std::string>;

namespace {

// walk.rig.limbs[].names[] and walk.rig.weight
class HostObserver : public testing::Test {
protected:
    const VObject limbs =
        asArray(makeCompound("limbs", {asArray(makeText("names")), makeDouble("length")}));
    const VObject node = makeNode("walk", {makeCompound("rig", {limbs, makeDouble("weight")})});
    VPlug rig = plugOf(node, "rig");
    VDataBlock block = blockOf(node);
};

}  // namespace

TEST_F(HostObserver, ObserverIsToldOfEachCallInOrderWithSubjectIndexAndArgument) {
    RecordingObserver observer;
    VPlug array = rig.child(0);
    array.elementByLogicalIndex(3);
    VDataHandle data = block.outputValue(rig);
    data.child(array);
    block.setClean(array.attribute());
    EXPECT_EQ(
        observer.texts(),
        (Texts{"VPlug::child walk.rig [0]", "VPlug::elementByLogicalIndex walk.rig.limbs [3]",
               "VDataBlock::outputValue walk (walk.rig)", "VDataHandle::child rig (walk.rig.limbs)",
               "VPlug::attribute walk.rig.limbs", "VDataBlock::setClean walk (limbs)"}));
    EXPECT_EQ(observer.calls[2].index, -1);
}

TEST_F(HostObserver, ObserverIsToldWhetherTheStatusIsAskedFor) {
    RecordingObserver observer;
    VStatus status;
    rig.child(0, &status);
    rig.child(0);
    EXPECT_TRUE(observer.calls[0].statusRequested);
    EXPECT_FALSE(observer.calls[1].statusRequested);
}

TEST_F(HostObserver, SubjectOfDataIsItsPathFromTheTopLevel) {
    VPlug names = rig.child(0).elementByLogicalIndex(0).child(0);
    VArrayDataHandle array(block.outputValue(rig.child(0)));
    RecordingObserver observer;
    VArrayDataBuilder builder = array.builder();
    VDataHandle element = builder.addElement(4);
    VArrayDataHandle inner(element.child(names));
    VArrayDataBuilder innerBuilder = inner.builder();
    innerBuilder.addElement(0).setString("toe");
    inner.set(innerBuilder);
    EXPECT_EQ(
        observer.texts(),
        (Texts{"VArrayDataHandle::builder rig.limbs", "VArrayDataBuilder::addElement rig.limbs [4]",
               "VDataHandle::child rig.limbs[] (walk.rig.limbs[0].names)",
               "VArrayDataHandle::VArrayDataHandle rig.limbs[].names",
               "VArrayDataHandle::builder rig.limbs[].names",
               "VArrayDataBuilder::addElement rig.limbs[].names [0]",
               "VDataHandle::setString rig.limbs[].names[] (toe)",
               "VArrayDataHandle::set rig.limbs[].names (rig.limbs[].names)"}));
}

TEST_F(HostObserver, ArgumentsAreToldAsText) {
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
    EXPECT_EQ(
        observer.texts(),
        (Texts{"VFnNumericAttribute::create (weight, w, 14, 0.5)",
               "VFnAttribute::setWritable weight (false)", "VFnEnumAttribute::create (mode, m, 0)",
               "VFnEnumAttribute::addField mode (slow, -3)",
               "VString::format (^1s on ^2s, port, walk)", "VGlobal::displayError (message)",
               "VDGModifier::addAttribute walk (mode)", "VDGModifier::connect walk.rig (walk.rig)",
               "VFnDependencyNode::VFnDependencyNode walk",
               "VFnDependencyNode::attribute walk (rig)"}));
}

TEST_F(HostObserver, ObserverIsNotToldOfCopiesAndComparisons) {
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

TEST_F(HostObserver, ObserverIsToldOfCallsOnNothing) {
    RecordingObserver observer;
    VPlug().child(2);
    VDataBlock().outputValue(VPlug());
    VDataHandle().asInt();
    VFnAttribute(VObject::kNullObj).name();
    EXPECT_EQ(observer.texts(),
              (Texts{"VPlug::child [2]", "VDataBlock::outputValue", "VDataHandle::asInt",
                     "VFnAttribute::VFnAttribute", "VFnAttribute::name"}));
}

TEST_F(HostObserver, NewestObserverAloneIsTold) {
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

TEST_F(HostObserver, ObserverIsToldOfItsOwnThreadOnly) {
    RecordingObserver observer;
    std::thread([this] { rig.child(0); }).join();
    EXPECT_TRUE(observer.calls.empty());
    std::vector<std::string> there;
    std::thread([&] {
        RecordingObserver other;
        rig.child(0);
        there = other.texts();
    }).join();
    EXPECT_EQ(there, Texts{"VPlug::child walk.rig [0]"});
    EXPECT_TRUE(observer.calls.empty());
}

TEST_F(HostObserver, ObserverIsNotToldOfWhatTheHostDoesInside) {
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
    EXPECT_EQ(observer.texts(),
              (Texts{"VDGModifier::connect source.limb (target.limb)", "VDGModifier::doIt",
                     "VDataBlock::inputValue target (target.limb)"}));
}

TEST_F(HostObserver, ObserverIsToldOfWhatAComputationCalls) {
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
    EXPECT_EQ(observer.texts(), (Texts{"VDataBlock::inputValue target (target.in)",
                                       "VDataBlock::outputValue source (source.out)",
                                       "VDataHandle::setDouble out (2)"}));
}

TEST_F(HostObserver, ObserverIsNotToldOfItsOwnCalls) {
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
