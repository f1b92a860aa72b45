#include "tests/tools/PluginNode.h"
#include "tools/node/CompareData.h"
#include "tools/node/FillInputs.h"
#include "tools/node/FilledJoint.h"

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

// Seven joints in two limbs.
class FilledJoint : public testing::Test {
protected:
    FilledJoint() {
        for (int j = 0; j < 7; ++j) {
            PosedJoint joint{std::string(1, static_cast<char>('a' + j)).c_str(), double(j), {}};
            for (std::size_t m = 0; m < kMatrixCount; ++m)
                joint.matrices[m][0][0] = 10.0 * j + static_cast<double>(m);
            joints.push_back(joint);
        }
        const Pelmor::Type pins = node.types.getType("array<Rigging::Module::Pins>");
        const Pelmor::Type transform = node.types.getType("Core::Transform::Transform");
        node.types.defineStruct("Nested", {{"one", transform}, {"many", pins}, {"two", transform}});
        node.types.defineStruct("Count", {{"count", node.types.getType("int")}});
    }

    FrameData dataOf(const std::vector<PosedJoint>& all) const {
        return frameData("rig", all, {{0, 1, 2, 3, 4}, {5, 6}}, Share::All);
    }

    DataShape port(const std::string& type, const char* name) {
        return node.addInput(name, node.types.getType(type.c_str()));
    }

    PluginNode node;
    std::vector<PosedJoint> joints;
};

// Where the values of one joint differ, that joint is found, wherever they have gone.
TEST_F(FilledJoint, IsTheOneWhoseValuesDifferInEveryTypeAndMember) {
    int number = 0;
    for (const std::string record :
         {"Core::Transform::Transform", "Rigging::Module::NamedTransforms", "Rigging::Module::Pins",
          "Rigging::Module::InputsControls", "Rigging::Module::Inputs", "Rigging::Module::Outputs",
          "Nested"})
        for (const std::string& type : {record, "array<" + record + ">"}) {
            const DataShape before = port(type, ("before" + std::to_string(number)).c_str());
            const DataShape after = port(type, ("after" + std::to_string(number++)).c_str());
            const FrameData data = dataOf(joints);
            fillInput(planFor(before), node.place(before), data, 0);
            std::size_t found = 0;
            for (std::size_t j = 0; j < joints.size(); ++j) {
                std::vector<PosedJoint> changed = joints;
                changed[j].name = "changed";
                changed[j].weight = 99;
                for (VMatrix& matrix : changed[j].matrices) matrix[1][1] = 99;
                fillInput(planFor(after), node.place(after), dataOf(changed), 0);
                Comparison comparison;
                compareData(
                    node.place(before), node.place(after), comparison,
                    [&](const Mismatch& mismatch) {
                        EXPECT_EQ(filledJoint(planFor(after), after, data, mismatch), &joints[j])
                            << type << ": " << placeOf(mismatch);
                        ++found;
                    });
            }
            EXPECT_GT(found, 0U) << type;
        }
}

TEST_F(FilledJoint, IsNoneForWhatIsNotOfASingleJoint) {
    const FrameData data = dataOf(joints);
    const auto at = [&](const DataShape& shape, const char* path, std::vector<unsigned> indices) {
        return filledJoint(planFor(shape), shape, data,
                           {"port", path, std::move(indices), "differs", {}, {}, {}});
    };
    const DataShape outputs = port("Rigging::Module::Outputs", "outputs");
    EXPECT_EQ(at(outputs, "", {}), nullptr) << "the port";
    EXPECT_EQ(at(outputs, "name", {}), nullptr) << "the name of the rig";
    EXPECT_EQ(at(outputs, "absent", {}), nullptr);
    EXPECT_EQ(at(port("Count", "count"), "count", {}), nullptr);
    const DataShape pins = port("Rigging::Module::Pins", "pins");
    EXPECT_EQ(at(pins, "names", {}), nullptr) << "how many there are";
    EXPECT_EQ(at(pins, "names[6]", {6}), &joints[6]);
    EXPECT_EQ(at(pins, "names[7]", {7}), nullptr);
    const DataShape limbs = port("array<Rigging::Module::Pins>", "limbs");
    EXPECT_EQ(at(limbs, "[1].names[1]", {1, 1}), &joints[6]);
    EXPECT_EQ(at(limbs, "[2].names[0]", {2, 0}), nullptr);
    EXPECT_EQ(at(limbs, "", {}), nullptr) << "how many there are";
}

}  // namespace
