#include "tests/tools/PluginNode.h"
#include "tools/node/CompareData.h"
#include "tools/node/FillInputs.h"
#include "tools/node/FindUnfilled.h"
#include "tools/node/SpoilData.h"

#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnCompoundAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>

#include <deque>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;
using testing::ElementsAre;

constexpr const char* kRecords[] = {
    "Core::Transform::Transform",      "Rigging::Module::NamedTransforms",
    "Rigging::Module::Pins",           "Rigging::Module::InputsJoints",
    "Rigging::Module::InputsControls", "Rigging::Module::Inputs",
    "Rigging::Module::Outputs",        "Everything"};

// Eight joints, "a" to "h". Joint j, from 1 on, weighs j, and its matrix m has 10 * j + m as its
// first element. The limbs are "a" to "c", and "h".
class FillInputs : public testing::Test {
protected:
    FillInputs() {
        for (int j = 1; j <= 8; ++j) {
            PosedJoint joint{std::string(1, static_cast<char>('a' + j - 1)).c_str(), double(j), {}};
            for (std::size_t m = 0; m < kMatrixCount; ++m)
                joint.matrices[m][0][0] = 10.0 * j + static_cast<double>(m);
            joints.push_back(joint);
        }
        data.rig = {"rig", &joints[1], {}};
        for (const PosedJoint& joint : joints) data.rig.joints.push_back(&joint);
        data.limbs = {{"a", &joints[0], {&joints[0], &joints[1], &joints[2]}},
                      {"h", &joints[7], {&joints[7]}}};
        node.types.defineEnum("Choice", {{"first", 7}, {"second", -9}});
        node.types.defineStruct("Inner", members({{"string", 2}, {"array<string>", 2}}));
        node.types.defineStruct("Everything", members({{"string", 2},
                                                       {"array<string>", 2},
                                                       {"double", 2},
                                                       {"array<double>", 2},
                                                       {"Math::double4x4", 2},
                                                       {"array<Math::double4x4>", 10},
                                                       {"int", 2},
                                                       {"Core::Transform::Transform", 9},
                                                       {"Choice", 2},
                                                       {"Object", 1},
                                                       {"bool", 2},
                                                       {"array<Core::Transform::Transform>", 2},
                                                       {"Inner", 3}}));
    }

    // So many members of each type. The first of some have a name that counts.
    std::vector<Pelmor::StructType::Member> members(
        const std::vector<std::pair<std::string, int>>& counts) const {
        std::vector<Pelmor::StructType::Member> all;
        for (const auto& [type, count] : counts)
            for (int i = 0; i < count; ++i) {
                std::string name = "m" + std::to_string(all.size());
                if (i == 0 && type == "string") name = "name";
                if (i == 0 && type == "array<string>") name = "names";
                if (i == 0 && type == "array<double>") name = "weights";
                all.emplace_back(name.c_str(), node.types.getType(type.c_str()));
            }
        return all;
    }

    DataShape portOf(const std::string& typeName, const std::string& name = "port") {
        return node.addInput(name.c_str(), node.types.getType(typeName.c_str()));
    }
    DataPlace fill(const DataShape& port, std::uint64_t seed = 0) {
        fillInput(planFor(port), node.place(port), data, seed);
        return node.place(port);
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
    static double number(const DataPlace& place) { return place.handle.asMatrix()[0][0]; }
    static std::string names(const DataPlace& place) {
        std::string all;
        for (const VString& name :
             elements(place, [](const DataPlace& e) { return e.handle.asString(); }))
            all += name.asChar();
        return all;
    }

    static Comparison compare(const DataPlace& a, const DataPlace& b) {
        Comparison comparison;
        compareData(a, b, comparison);
        return comparison;
    }

    PluginNode node;
    std::vector<PosedJoint> joints;
    FrameData data;
};

// As "port.names[1]: is at another index: 1 went in, 4 came back".
std::string wanting(const std::optional<Mismatch>& found) {
    return found ? inOneLine(*found) : "nothing";
}

// One value each, with a shape of its own, which is not that of an array.
void collectLeaves(const DataPlace& place, std::deque<DataShape>& shapes,
                   std::vector<DataPlace>& leaves) {
    if (place.shape.kind == DataShape::Kind::Empty) return;
    const auto below = [&](const DataPlace& one) {
        if (place.shape.children.empty()) {
            shapes.push_back(place.shape);
            shapes.back().isArray = false;
            leaves.push_back({shapes.back(), one.handle});
        }
        for (std::size_t i = 0; i < place.shape.children.size(); ++i)
            collectLeaves(one.child(i), shapes, leaves);
    };
    if (!place.shape.isArray) return below(place);
    VArrayDataHandle array(place.handle);
    for (unsigned i = array.elementCount(); i > 0; --i, array.next())
        below({place.shape, array.outputValue()});
}

TEST_F(FillInputs, LeavesInputsThatHoldWhatWasPutIntoThem) {
    int ports = 0;
    for (const std::string record : kRecords)
        for (const std::string& type : {record, "array<" + record + ">"}) {
            const DataShape port = portOf(type, "port" + std::to_string(ports++));
            EXPECT_EQ(wanting(findUnfilled(planFor(port), fill(port, 1), data, 1)), "nothing")
                << type;
        }
}

// Each leaf is spoilt by itself, wherever it is.
TEST_F(FillInputs, AreFoundWantingByEveryLeafThatIsNotWhatWasPutIntoIt) {
    int ports = 0;
    for (const std::string record : kRecords)
        for (const std::string& type : {record, "array<" + record + ">"}) {
            const DataShape port = portOf(type, "port" + std::to_string(ports++));
            std::deque<DataShape> shapes;
            std::vector<DataPlace> leaves;
            collectLeaves(fill(port, 1), shapes, leaves);
            for (const DataPlace& leaf : leaves) {
                spoilData(leaf);
                const auto found = findUnfilled(planFor(port), node.place(port), data, 1);
                EXPECT_THAT(wanting(found),
                            testing::HasSubstr(": does not hold what it was filled with"))
                    << type << ", " << leaf.shape.name;
                fill(port, 1);
            }
        }
}

TEST_F(FillInputs, AreFoundWantingWhereAnArrayInAnArrayHasOtherElements) {
    const auto change = [&](const char* name, unsigned removed, std::optional<unsigned> added) {
        const DataShape port = portOf("array<Rigging::Module::InputsControls>", name);
        VArrayDataHandle limbs(fill(port).handle);
        const DataPlace limb{port, limbs.outputValue()};
        VArrayDataHandle transforms(limb.child(3).child(1).handle);
        VArrayDataBuilder builder = transforms.builder();
        builder.removeElement(removed);
        if (added) builder.addElement(*added);
        transforms.set(builder);
        return wanting(findUnfilled(planFor(port), node.place(port), data, 0));
    };
    EXPECT_EQ(change("few", 0, std::nullopt),
              "few[0].namedTransforms.transforms: does not hold as many elements as were put in: 3 "
              "went in, 2 came back");
    EXPECT_EQ(
        change("other", 2, 7),
        "other[0].namedTransforms.transforms[2]: is at another index: 2 went in, 7 came back");
}

TEST_F(FillInputs, AreFoundWantingWithBothValues) {
    const DataShape port = portOf("Rigging::Module::Pins", "port");
    const auto found = [&](std::size_t child, const auto& change) {
        VArrayDataHandle array(fill(port).child(child).handle);
        array.next();
        change(array.outputValue());
        return wanting(findUnfilled(planFor(port), node.place(port), data, 0));
    };
    EXPECT_EQ(
        found(0, [](VDataHandle name) { name.setString(""); }),
        "port.names[1]: does not hold what it was filled with: \"b\" went in, \"\" came back");
    EXPECT_EQ(found(1, [](VDataHandle matrix) { matrix.asMatrix()[0][0] = 0; }),
              "port.matrices[1]: does not hold what it was filled with in row 0, column 0: 20 went "
              "in, 0 came back");
    EXPECT_EQ(found(1, [](VDataHandle matrix) { matrix.asMatrix()[0][1] = -0.0; }),
              "port.matrices[1]: does not hold what it was filled with in row 0, column 1: 0 went "
              "in, -0 came back");
}

TEST_F(FillInputs, GivesARecordTheRigsDataForWhichKindAndNameAsk) {
    const DataShape controlsPort = portOf("Rigging::Module::InputsControls", "controls");
    const DataPlace controls = fill(controlsPort);
    EXPECT_EQ(names(controls.child(0)), "abcdefgh");
    EXPECT_THAT(elements(controls.child(1), number), ElementsAre(10, 20, 30, 40, 50, 60, 70, 80));
    EXPECT_THAT(elements(controls.child(2), [](const DataPlace& e) { return e.handle.asDouble(); }),
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
    const DataShape namedPort = portOf("Rigging::Module::NamedTransforms", "named");
    const DataPlace transforms = fill(namedPort).child(1);
    for (std::size_t m = 0; m < kMatrixCount; ++m)
        EXPECT_EQ(elements(transforms, [m](const DataPlace& e) { return number(e.child(m)); })[7],
                  80.0 + static_cast<double>(m));
}

TEST_F(FillInputs, TellsRecordsInARecordApartByOrderAndNumberOfTheirJoints) {
    const DataShape port = portOf("Rigging::Module::Outputs");
    const DataPlace outputs = fill(port);
    EXPECT_EQ(outputs.child(0).handle.asString(), "rig");
    const char* expected[] = {"hgfedcba", "aceg", "bdfh", "bcdefgha"};
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(names(outputs.child(i + 1).child(0)), expected[i]);
}

TEST_F(FillInputs, TellsArraysOfMatricesApartEvenWhereThereIsOneJoint) {
    data.rig.joints.resize(1);
    const DataShape port = portOf("Rigging::Module::Inputs");
    const DataPlace inputs = fill(port);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_THAT(elements(inputs.child(i).child(1), number), ElementsAre(10 + int(i)));
}

TEST_F(FillInputs, GivesATransformEveryMatrixOfTheFirstJointEvenWhereNoneTakesPart) {
    const DataShape port = portOf("Core::Transform::Transform");
    for (const double expected : {10.0, 20.0}) {
        const DataPlace transform = fill(port);
        for (std::size_t m = 0; m < kMatrixCount; ++m)
            EXPECT_EQ(number(transform.child(m)), expected + static_cast<double>(m));
        data.rig.joints.clear();
    }
}

// All that is filled as one: leaves, arrays of leaves, and transforms, alone and in arrays.
void collectMembers(const DataPlace& place, std::vector<DataPlace>& members) {
    const bool isTransform = place.shape.children.size() == kMatrixCount;
    if (place.shape.kind != DataShape::Kind::Compound || isTransform)
        return members.push_back(place);
    for (std::size_t i = 0; i < place.shape.children.size(); ++i)
        collectMembers(place.child(i), members);
}

TEST_F(FillInputs, GivesNoTwoMembersOfARecordTheSameData) {
    using Kind = DataShape::Kind;
    for (const char* record : kRecords) {
        const DataShape port = portOf(record, record);
        std::vector<DataPlace> members;
        collectMembers(fill(port), members);
        for (const DataPlace& a : members)
            for (const DataPlace& b : members) {
                const bool hasTooFewValues = a.shape.kind == Kind::Bool ||
                                             a.shape.kind == Kind::Enum ||
                                             a.shape.kind == Kind::Empty;
                if (hasTooFewValues || &a.shape == &b.shape) continue;
                EXPECT_GT(compare(a, b).mismatches, 0U)
                    << record << ": " << a.shape.name << ", " << b.shape.name;
            }
    }
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
TEST_F(FillInputs, FillsEveryMemberAlikeForTheSameSeed) {
    for (const std::string record : kRecords) {
        for (const std::string& type : {record, "array<" + record + ">"}) {
            const DataShape once = portOf(type, type + "1"), twice = portOf(type, type + "2");
            fill(once);
            EXPECT_FALSE(hasEmptyArray(fill(twice))) << type;
            spoilData(node.place(twice));
            const Comparison spoilt = compare(node.place(once), node.place(twice));
            EXPECT_EQ(spoilt.mismatches, spoilt.leavesCompared) << type;
            const Comparison filled = compare(node.place(once), fill(twice));
            EXPECT_FALSE(filled.firstMismatch) << type;
            EXPECT_GT(filled.leavesCompared, 0U) << type;
        }
    }
}

TEST_F(FillInputs, GeneratesOtherDataForAnotherSeedAndValuesThatAnEnumHas) {
    node.types.defineStruct(
        "Generated",
        members({{"int", 1}, {"double", 1}, {"array<double>", 2}, {"Math::double4x4", 1}}));
    node.types.defineStruct("Few", members({{"bool", 1}, {"Choice", 1}}));
    const DataShape once = portOf("Generated", "once"), twice = portOf("Generated", "twice");
    const DataShape few = portOf("Few", "few");
    std::set<bool> flags;
    std::set<short> choices;
    for (std::uint64_t seed = 0; seed < 20; ++seed) {
        // All but the eight weights, which are the rig's.
        const Comparison comparison = compare(fill(once, seed), fill(twice, seed + 1));
        EXPECT_EQ(comparison.mismatches, comparison.leavesCompared - joints.size());
        flags.insert(fill(few, seed).child(0).handle.asBool());
        choices.insert(node.place(few).child(1).handle.asShort());
    }
    EXPECT_THAT(flags, ElementsAre(false, true));
    EXPECT_THAT(choices, ElementsAre(-9, 7));
}

TEST_F(FillInputs, GrowsAndShrinksArrays) {
    const DataShape port = portOf("Rigging::Module::Pins");
    for (const std::string expected : {"abcdefgh", "c", "", "ba"}) {
        data.rig.joints.clear();
        for (const char name : expected)
            data.rig.joints.push_back(&joints[static_cast<std::size_t>(name - 'a')]);
        const DataPlace pins = fill(port);
        EXPECT_EQ(names(pins.child(0)), expected);
        EXPECT_EQ(elements(pins.child(1), number).size(), expected.size());
    }
}

TEST_F(FillInputs, GivesAnArrayOfRecordsOneForEachLimb) {
    const DataShape port = portOf("array<Rigging::Module::Pins>");
    EXPECT_THAT(elements(fill(port), [](const DataPlace& pins) { return names(pins.child(0)); }),
                ElementsAre("abc", "h"));
}

// Ports of the plugin have no such arrays, but those of another translation may.
TEST_F(FillInputs, GivesAnArrayOfRecordsInARecordOneForEachJoint) {
    VFnCompoundAttribute inner, outer;
    const VObject array = inner.create("inner", "inner"), record = outer.create("outer", "outer");
    inner.setArray(true);
    inner.addChild(VFnNumericAttribute().create("count", "count", VFnNumericData::kInt));
    outer.addChild(array);
    VFnDependencyNode functions;
    const VObject hostNode = functions.create("node");
    VDGModifier modifier;
    modifier.addAttribute(hostNode, record);
    ASSERT_FALSE(modifier.doIt().error());

    const DataShape port = shapeOf(VPlug(hostNode, record));
    const DataPlace place{port, functions.dataBlock().outputValue(port.plug)};
    fillInput(planFor(port), place, data, 0);
    std::set<int> counts;
    for (const int count :
         elements(place.child(0), [](const DataPlace& e) { return e.child(0).handle.asInt(); }))
        counts.insert(count);
    EXPECT_EQ(counts.size(), joints.size());
}

TEST(ChooseJoints, GivesAsManyChoicesAsItSays) {
    const std::vector<PosedJoint> joints(9);
    for (std::size_t count = 0; count <= joints.size(); ++count) {
        JointList list;
        for (std::size_t i = 0; i < count; ++i) list.push_back(&joints[i]);
        std::set<JointList> choices;
        for (std::size_t choice = 0; choice < 4 * (count / 2); ++choice)
            choices.insert(chooseJoints(list, choice));
        EXPECT_EQ(choices.size(), 4 * (count / 2));
        for (std::size_t choice = 0; choice < 100; ++choice)
            EXPECT_EQ(chooseJoints(list, choice).empty(), count == 0);
    }
}

}  // namespace
