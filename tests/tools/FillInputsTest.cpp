#include "tests/tools/PluginNode.h"
#include "tools/node/FillInputs.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::ElementsAre;
using testing::IsEmpty;

// Three joints: "a", "b" and "c" with weights 1, 2 and 3. Matrix m of joint j has 10 * j + m in its
// first place.
class FillInputs : public testing::Test {
protected:
    FillInputs() {
        for (int j = 1; j <= 3; ++j) {
            PosedJoint joint{std::string(1, static_cast<char>('a' + j - 1)).c_str(), double(j), {}};
            for (std::size_t m = 0; m < kMatrixCount; ++m)
                joint.matrices[m][0][0] = 10.0 * j + static_cast<double>(m);
            joints.push_back(joint);
        }
        group = {"group", &joints[1], {&joints[0], &joints[1], &joints[2]}};
    }

    static const RecordType& record(const std::string& portName) {
        for (const RecordType& type : kRecordTypes)
            if (type.portName == portName) return type;
        throw std::out_of_range(portName);
    }

    // The data of a new port of that record, filled with `group`.
    DataPlace filled(const std::string& portName) {
        const RecordType& type = record(portName);
        shape = node.addInput("port", node.types.getType(type.typeName));
        type.fill(node.place(shape), group);
        return node.place(shape);
    }

    template <typename Read>
    static auto elements(const DataPlace& place, Read read) {
        std::vector<decltype(read(place))> values;
        VArrayDataHandle array(place.handle);
        for (unsigned i = array.elementCount(); i > 0; --i) {
            values.push_back(read({place.shape, array.outputValue()}));
            array.next();
        }
        return values;
    }

    static std::vector<std::string> names(const DataPlace& place) {
        return elements(place, [](const DataPlace& element) {
            return std::string(element.handle.asString().asChar());
        });
    }
    static double number(const DataPlace& place) { return place.handle.asMatrix()[0][0]; }
    static std::vector<double> matrices(const DataPlace& place) { return elements(place, number); }
    static std::vector<double> worlds(const DataPlace& place) {
        return elements(place,
                        [](const DataPlace& element) { return number(element.child(kWorld)); });
    }

    PluginNode node;
    std::vector<PosedJoint> joints;
    JointGroup group;
    DataShape shape;
};

TEST_F(FillInputs, ATransformHasTheEightMatricesOfTheFirstJoint) {
    const DataPlace place = filled("Transform");
    for (std::size_t i = 0; i < kMatrixCount; ++i)
        EXPECT_EQ(number(place.child(i)), 20.0 + static_cast<double>(i));
}

TEST_F(FillInputs, NamedTransformsHaveAllJoints) {
    const DataPlace place = filled("NamedTransforms");
    EXPECT_THAT(names(place.child(0)), ElementsAre("a", "b", "c"));
    EXPECT_THAT(worlds(place.child(1)), ElementsAre(10, 20, 30));
}

TEST_F(FillInputs, PinsHaveWorldMatrices) {
    const DataPlace place = filled("Pins");
    EXPECT_THAT(names(place.child(0)), ElementsAre("a", "b", "c"));
    EXPECT_THAT(matrices(place.child(1)), ElementsAre(10, 20, 30));
}

TEST_F(FillInputs, JointsHaveRestMatricesAndTheirTransformsReversed) {
    const DataPlace place = filled("InputsJoints");
    EXPECT_THAT(matrices(place.child(1)), ElementsAre(12, 22, 32));
    EXPECT_THAT(names(place.child(2).child(0)), ElementsAre("c", "b", "a"));
    EXPECT_THAT(worlds(place.child(2).child(1)), ElementsAre(30, 20, 10));
}

TEST_F(FillInputs, ControlsHaveLocalMatricesAndWeights) {
    const DataPlace place = filled("InputsControls");
    EXPECT_THAT(matrices(place.child(1)), ElementsAre(11, 21, 31));
    EXPECT_THAT(elements(place.child(2),
                         [](const DataPlace& element) { return element.handle.asDouble(); }),
                ElementsAre(1, 2, 3));
    EXPECT_THAT(names(place.child(3).child(0)), ElementsAre("c", "b", "a"));
}

TEST_F(FillInputs, NoTwoMembersOfInputsHaveTheSameNames) {
    const DataPlace place = filled("Inputs");
    EXPECT_THAT(names(place.child(0).child(0)), ElementsAre("a", "b", "c"));
    EXPECT_THAT(names(place.child(1).child(0)), ElementsAre("b", "c", "a"));
    EXPECT_THAT(names(place.child(2).child(0)), ElementsAre("a", "c"));
    EXPECT_THAT(names(place.child(3).child(0)), ElementsAre("b"));
}

TEST_F(FillInputs, NoTwoMembersOfOutputsHaveTheSameNames) {
    const DataPlace place = filled("Outputs");
    EXPECT_EQ(place.child(0).handle.asString(), "group");
    EXPECT_THAT(names(place.child(1).child(0)), ElementsAre("a", "b", "c"));
    EXPECT_THAT(names(place.child(2).child(0)), ElementsAre("c", "b", "a"));
    EXPECT_THAT(names(place.child(3).child(0)), ElementsAre("a", "c"));
    EXPECT_THAT(names(place.child(4).child(0)), ElementsAre("b"));
}

TEST_F(FillInputs, ArraysGrowAndShrink) {
    const DataPlace place = filled("Pins");
    group.joints = {&joints[2]};
    record("Pins").fill(place, group);
    EXPECT_THAT(names(place.child(0)), ElementsAre("c"));
    group.joints.clear();
    record("Pins").fill(place, group);
    EXPECT_THAT(names(place.child(0)), IsEmpty());
    group.joints = {&joints[1], &joints[0]};
    record("Pins").fill(place, group);
    EXPECT_THAT(names(place.child(0)), ElementsAre("b", "a"));
    EXPECT_THAT(matrices(place.child(1)), ElementsAre(20, 10));
}

TEST_F(FillInputs, AnArrayOfRecordsHasOneForEachLimb) {
    const RecordType& pins = record("Pins");
    shape = node.addInput("port", Pelmor::Library::arrayOf(node.types.getType(pins.typeName)));
    const JointGroup shorter{"shorter", &joints[2], {&joints[2]}};
    fillRecordArray(pins, node.place(shape), {group, shorter});
    VArrayDataHandle array(node.place(shape).handle);
    ASSERT_EQ(array.elementCount(), 2U);
    EXPECT_THAT(names(DataPlace{shape, array.outputValue()}.child(0)), ElementsAre("a", "b", "c"));
    array.next();
    EXPECT_EQ(array.elementIndex(), 1U);
    EXPECT_THAT(names(DataPlace{shape, array.outputValue()}.child(0)), ElementsAre("c"));
}

}  // namespace
