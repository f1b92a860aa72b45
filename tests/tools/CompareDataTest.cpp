#include "tests/tools/PluginNode.h"
#include "tools/node/CompareData.h"
#include "tools/node/ShapeMisfit.h"
#include "tools/node/SpoilData.h"

#include <OpenVornik/VArrayDataHandle.h>

#include <limits>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane::Tools;

enum Member : std::size_t {
    kMatrixMember,
    kText,
    kNumber,
    kFlag,
    kCount,
    kChoice,
    kObject,
    kNames,
    kNested
};

// Two attributes of a struct that has a member of each kind. Their data is equal at first.
class TwoAttributes : public testing::Test {
protected:
    TwoAttributes() {
        const auto type = [&](const char* name) { return node.types.getType(name); };
        const auto choice = node.types.defineEnum("Choice", {{"first", 0}, {"second", 1}});
        const auto inner = node.types.defineStruct("Inner", {{"value", type("double")}});
        const auto all = node.types.defineStruct("All", {{"matrix", type("Math::double4x4")},
                                                         {"text", type("string")},
                                                         {"number", type("double")},
                                                         {"flag", type("bool")},
                                                         {"count", type("int")},
                                                         {"choice", choice},
                                                         {"object", type("Object")},
                                                         {"names", type("array<string>")},
                                                         {"nested", inner}});
        expectedShape = node.addInput("expected", all);
        actualShape = node.addInput("actual", all);
        for (const DataPlace& place : {expected(), actual()})
            setIndices(place.child(kNames), {0, 1});
    }

    static void setIndices(const DataPlace& place, const std::vector<unsigned>& indices) {
        VArrayDataHandle array(place.handle);
        VArrayDataBuilder builder = array.builder();
        for (unsigned i = 0; i < 10; ++i) builder.removeElement(i);
        for (const unsigned index : indices) builder.addElement(index);
        array.set(builder);
    }

    DataPlace expected() { return node.place(expectedShape); }
    DataPlace actual() { return node.place(actualShape); }
    VDataHandle actual(Member member) { return actual().child(member).handle; }

    Comparison compare() {
        Comparison comparison;
        compareData(expected(), actual(), comparison);
        return comparison;
    }

    static std::string textOf(const Comparison& comparison) {
        if (!comparison.firstMismatch) return "none";
        return placeOf(*comparison.firstMismatch) + ": " + comparison.firstMismatch->what;
    }

    void expectOneMismatch(const std::string& what) {
        const Comparison comparison = compare();
        EXPECT_EQ(comparison.mismatches, 1U);
        EXPECT_EQ(textOf(comparison), what);
    }

    PluginNode node;
    DataShape expectedShape;
    DataShape actualShape;
};

class CompareData : public TwoAttributes {};
class SpoilData : public TwoAttributes {};
class ShapeOfAttributes : public TwoAttributes {};

TEST_F(CompareData, FindsNoMismatchInEqualDataAndCountsEveryLeaf) {
    const Comparison comparison = compare();
    EXPECT_EQ(comparison.mismatches, 0U);
    EXPECT_FALSE(comparison.firstMismatch);
    EXPECT_EQ(comparison.leavesCompared, 9U);
}

TEST_F(CompareData, FindsADifferenceInAnyPlaceOfAMatrix) {
    actual(kMatrixMember).asMatrix()[3][2] = 1e-300;
    expectOneMismatch("actual.matrix: differs");
}

TEST_F(CompareData, FindsADifferentText) {
    actual(kText).setString("a");
    expectOneMismatch("actual.text: differs");
}

TEST_F(CompareData, FindsADifferentNumber) {
    actual(kNumber).setDouble(std::numeric_limits<double>::denorm_min());
    expectOneMismatch("actual.number: differs");
}

TEST_F(CompareData, TellsNegativeZeroFromZero) {
    actual(kNumber).setDouble(-0.0);
    expectOneMismatch("actual.number: differs");
}

TEST_F(CompareData, TakesANanAsEqualToItselfAlone) {
    expected().child(kNumber).handle.asDouble() = std::numeric_limits<double>::quiet_NaN();
    actual(kNumber).setDouble(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(compare().mismatches, 0U);
    actual(kNumber).setDouble(-std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(compare().mismatches, 1U);
}

TEST_F(CompareData, FindsADifferentBool) {
    actual(kFlag).setBool(true);
    expectOneMismatch("actual.flag: differs");
}

TEST_F(CompareData, FindsADifferentInteger) {
    actual(kCount).setInt(-1);
    expectOneMismatch("actual.count: differs");
}

TEST_F(CompareData, FindsADifferentChoice) {
    actual(kChoice).setShort(1);
    expectOneMismatch("actual.choice: differs");
}

TEST_F(CompareData, FindsADifferenceInANestedCompound) {
    actual().child(kNested).child(0).handle.asDouble() = 1;
    expectOneMismatch("actual.nested.value: differs");
}

TEST_F(CompareData, FindsADifferenceInAnElement) {
    VArrayDataHandle array(actual(kNames));
    array.next();
    array.outputValue().setString("a");
    expectOneMismatch("actual.names[1]: differs");
}

TEST_F(CompareData, FindsAnElementTooFew) {
    setIndices(actual().child(kNames), {0});
    expectOneMismatch("actual.names: has 1 elements, not 2");
}

TEST_F(CompareData, FindsAnElementTooMany) {
    setIndices(actual().child(kNames), {0, 1, 2});
    expectOneMismatch("actual.names: has 3 elements, not 2");
}

TEST_F(CompareData, FindsAnotherLogicalIndex) {
    setIndices(actual().child(kNames), {0, 4});
    expectOneMismatch("actual.names[1]: is at index 4 instead");
}

TEST_F(CompareData, FindsAttributesOfAnotherShape) {
    const DataShape other = node.addInput("other", node.types.getType("Inner"));
    Comparison comparison;
    compareData(expected(), node.place(other), comparison);
    EXPECT_EQ(textOf(comparison), "other: is another kind of attribute");
}

TEST_F(CompareData, AddsUpMismatchesAndKeepsTheFirst) {
    actual(kText).setString("a");
    actual(kNumber).setDouble(1);
    Comparison comparison;
    compareData(expected(), actual(), comparison);
    compareData(expected(), actual(), comparison);
    EXPECT_EQ(comparison.mismatches, 4U);
    EXPECT_EQ(comparison.leavesCompared, 18U);
    EXPECT_EQ(textOf(comparison), "actual.text: differs");
}

TEST_F(SpoilData, MakesEveryLeafDifferAndKeepsElements) {
    spoilData(actual());
    // The matrix, the text, the number, the flag, the count, the choice, two names, the nested
    // number.
    const Comparison comparison = compare();
    EXPECT_EQ(comparison.leavesCompared, 9U);
    EXPECT_EQ(comparison.mismatches, 9U);
    EXPECT_EQ(VArrayDataHandle(actual(kNames)).elementCount(), 2U);
}

TEST_F(SpoilData, InvertsABoolEachTime) {
    spoilData(actual());
    EXPECT_TRUE(actual(kFlag).asBool());
    spoilData(actual());
    EXPECT_FALSE(actual(kFlag).asBool());
}

TEST_F(ShapeOfAttributes, CountsAnAttributeWithAllBelowIt) {
    EXPECT_EQ(attributeCount(expectedShape), 11U);
}

TEST_F(ShapeOfAttributes, FitsItsOwnTypeAlone) {
    const auto misfit = [&](const DataShape& shape, const char* type) {
        const auto found = misfitOf(shape, node.types.getType(type));
        return found ? found->path + ": " + found->what : "";
    };
    EXPECT_EQ(misfit(expectedShape, "All"), "");
    EXPECT_EQ(misfit(expectedShape, "array<All>"), ": is a compound, not array<All>");
    EXPECT_EQ(misfit(expectedShape, "Inner"), "value: is a matrix, not double");
    EXPECT_EQ(misfit(expectedShape, "array<array<All>>"),
              ": an array of arrays has no attribute in the host");
    DataShape odd = expectedShape;
    odd.children.pop_back();
    EXPECT_EQ(misfit(odd, "All"), "nested: is missing");
    odd.children.push_back(expectedShape.children[kNested]);
    odd.children[kNested].children.push_back(odd.children[kFlag]);
    EXPECT_EQ(misfit(odd, "All"), "nested.flag: is no member of Inner");
    std::swap(odd.children[kNames], odd.children[kObject]);
    EXPECT_EQ(misfit(odd, "All"), "object: is a string array, not Object");
    node.types.defineStruct("Gains", {{"gains", node.types.getType("array<float>")}});
    EXPECT_EQ(misfit(expectedShape, "Gains"), "gains: a float has no attribute in the host");
}

TEST_F(ShapeOfAttributes, FitsNoTypeWithALeafOfUnknownKind) {
    for (std::size_t i = 0; i < expectedShape.children.size(); ++i) {
        DataShape shape = expectedShape;
        shape.children[i].kind = DataShape::Kind::Unknown;
        EXPECT_TRUE(misfitOf(shape, node.types.getType("All"))) << shape.children[i].name;
    }
}

}  // namespace
