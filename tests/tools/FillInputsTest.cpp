#include "tests/tools/PluginNode.h"
#include "tools/node/CompareData.h"
#include "tools/node/FillInputs.h"
#include "tools/node/SpoilData.h"

#include <OpenVornik/VArrayDataHandle.h>
#include <Pelmor/Array.h>

#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::ElementsAre;
using testing::IsEmpty;

// Three joints: "a", "b" and "c" with weights 1, 2 and 3. Matrix m of joint j has 10 * j + m as its
// first element.
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
        for (const RecordType& type : recordTypes())
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

TEST_F(FillInputs, GivesATransformEveryMatrixOfTheFirstJoint) {
    const DataPlace place = filled("Transform");
    for (std::size_t i = 0; i < kMatrixCount; ++i)
        EXPECT_EQ(number(place.child(i)), 20.0 + static_cast<double>(i));
}

TEST_F(FillInputs, GivesNamedTransformsAllJoints) {
    const DataPlace place = filled("NamedTransforms");
    EXPECT_THAT(names(place.child(0)), ElementsAre("a", "b", "c"));
    EXPECT_THAT(worlds(place.child(1)), ElementsAre(10, 20, 30));
}

TEST_F(FillInputs, GivesPinsWorldMatrices) {
    const DataPlace place = filled("Pins");
    EXPECT_THAT(names(place.child(0)), ElementsAre("a", "b", "c"));
    EXPECT_THAT(matrices(place.child(1)), ElementsAre(10, 20, 30));
}

TEST_F(FillInputs, GivesJointsRestMatricesAndReversedTransforms) {
    const DataPlace place = filled("InputsJoints");
    EXPECT_THAT(matrices(place.child(1)), ElementsAre(12, 22, 32));
    EXPECT_THAT(names(place.child(2).child(0)), ElementsAre("c", "b", "a"));
    EXPECT_THAT(worlds(place.child(2).child(1)), ElementsAre(30, 20, 10));
}

TEST_F(FillInputs, GivesControlsLocalMatricesAndWeights) {
    const DataPlace place = filled("InputsControls");
    EXPECT_THAT(matrices(place.child(1)), ElementsAre(11, 21, 31));
    EXPECT_THAT(elements(place.child(2),
                         [](const DataPlace& element) { return element.handle.asDouble(); }),
                ElementsAre(1, 2, 3));
    EXPECT_THAT(names(place.child(3).child(0)), ElementsAre("c", "b", "a"));
}

TEST_F(FillInputs, GivesNoTwoMembersOfInputsTheSameNames) {
    const DataPlace place = filled("Inputs");
    EXPECT_THAT(names(place.child(0).child(0)), ElementsAre("a", "b", "c"));
    EXPECT_THAT(names(place.child(1).child(0)), ElementsAre("b", "c", "a"));
    EXPECT_THAT(names(place.child(2).child(0)), ElementsAre("a", "c"));
    EXPECT_THAT(names(place.child(3).child(0)), ElementsAre("b"));
}

TEST_F(FillInputs, GivesNoTwoMembersOfOutputsTheSameNames) {
    const DataPlace place = filled("Outputs");
    EXPECT_EQ(place.child(0).handle.asString(), "group");
    EXPECT_THAT(names(place.child(1).child(0)), ElementsAre("a", "b", "c"));
    EXPECT_THAT(names(place.child(2).child(0)), ElementsAre("c", "b", "a"));
    EXPECT_THAT(names(place.child(3).child(0)), ElementsAre("a", "c"));
    EXPECT_THAT(names(place.child(4).child(0)), ElementsAre("b"));
}

bool hasEmptyArray(const DataPlace& place) {
    VArrayDataHandle array(place.handle);
    if (place.shape.kind == DataShape::Kind::Empty) return false;
    if (place.shape.isArray && array.elementCount() == 0) return true;
    const DataPlace one{place.shape, place.shape.isArray ? array.outputValue() : place.handle};
    for (std::size_t i = 0; i < place.shape.children.size(); ++i)
        if (hasEmptyArray(one.child(i))) return true;
    return false;
}

// A leaf that is left out keeps the spoilt value, and then differs from that of the other port.
TEST_F(FillInputs, FillsEveryMemberOfEveryRecord) {
    for (const RecordType& type : recordTypes()) {
        const Pelmor::Type record = node.types.getType(type.typeName);
        const DataShape once = node.addInput((type.portName + std::string("1")).c_str(), record);
        const DataShape twice = node.addInput((type.portName + std::string("2")).c_str(), record);
        type.fill(node.place(once), group);
        type.fill(node.place(twice), group);
        EXPECT_FALSE(hasEmptyArray(node.place(twice))) << type.typeName;

        spoilData(node.place(twice));
        Comparison spoilt;
        compareData(node.place(once), node.place(twice), spoilt);
        EXPECT_EQ(spoilt.mismatches, spoilt.leavesCompared) << type.typeName;

        type.fill(node.place(twice), group);
        Comparison filled;
        compareData(node.place(once), node.place(twice), filled);
        EXPECT_EQ(filled.firstMismatch, "") << type.typeName;
        EXPECT_GT(filled.leavesCompared, 0U) << type.typeName;
    }
}

// `tolvane run` would leave out a type that is missing here, and its verdict would not show it.
TEST(RecordTypes, AreThoseThatThePluginCarries) {
    const TavrikGraph::Executor::TranslationLibrary plugin(PLUGIN);
    Pelmor::Array<Pelmor::String> names;
    plugin.translation().getSupportedTypeNames(names);
    std::set<std::string> carried, known;
    for (const Pelmor::String& name : names) carried.insert(name.c_str());
    for (const RecordType& type : recordTypes()) {
        known.insert(type.typeName);
        known.insert("array<" + std::string(type.typeName) + ">");
    }
    EXPECT_EQ(known, carried);
}

TEST_F(FillInputs, GrowsAndShrinksArrays) {
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

TEST_F(FillInputs, GivesAnArrayOfRecordsOneForEachLimb) {
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
