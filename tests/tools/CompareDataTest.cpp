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

    // All of the one mismatch, such as "actual.count: differs: 0, -1 (-1)".
    void expectOneMismatch(const std::string& text) {
        const Comparison comparison = compare();
        EXPECT_EQ(comparison.mismatches, 1U);
        ASSERT_TRUE(comparison.firstMismatch);
        const Mismatch& found = *comparison.firstMismatch;
        EXPECT_EQ(textOf(comparison) + ": " + found.expected + ", " + found.actual + " (" +
                      found.difference + ")",
                  text);
    }

    // Of the two numbers, the texts that a mismatch has.
    void expectNumbers(double went, double came, const std::vector<std::string>& texts) {
        expected().child(kNumber).handle.asDouble() = went;
        actual(kNumber).setDouble(came);
        const Mismatch found = compare().firstMismatch.value();
        EXPECT_EQ((std::vector{found.expected, found.actual, found.difference}), texts);
    }

    void expectTexts(const std::string& went, const std::string& came,
                     const std::vector<std::string>& texts) {
        expected().child(kText).handle.asString() = went.c_str();
        actual(kText).setString(came.c_str());
        const Mismatch found = compare().firstMismatch.value();
        EXPECT_EQ((std::vector{found.expected, found.actual, found.difference}), texts);
        EXPECT_EQ(std::get<std::string>(found.expectedValue), went);
        EXPECT_EQ(std::get<std::string>(found.actualValue), came);
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
    expectOneMismatch("actual.matrix: differs in row 3, column 2: 0, 1e-300 (1e-300)");
    const Mismatch found = compare().firstMismatch.value();
    EXPECT_EQ(found.element->row, 3U);
    EXPECT_EQ(found.element->column, 2U);
    EXPECT_EQ(std::get<double>(found.actualValue), 1e-300);
}

TEST_F(CompareData, ShowsTheFirstOfSeveralDifferencesInAMatrix) {
    actual(kMatrixMember).asMatrix()[1][1] = 1.5;
    actual(kMatrixMember).asMatrix()[2][0] = -0.0;
    expectOneMismatch(
        "actual.matrix: differs in row 1, column 1, and in 1 other element: 1, 1.5 (0.5)");
}

TEST_F(CompareData, FindsADifferentText) {
    actual(kText).setString("a");
    expectOneMismatch(R"(actual.text: differs: "", "a" (from character 0 on))");
}

TEST_F(CompareData, ShowsWhatCannotBePrintedInTextsAndWhatEndsThem) {
    expectTexts("arm ", "arm", {R"("arm ")", R"("arm")", "from character 3 on"});
    expectTexts("\x1b[31m\n\"\\", "左\xff",
                {R"("\x1b[31m\n\"\\")", R"("左\xff")", "from character 0 on"});
}

TEST_F(CompareData, CutsLongTextsAroundTheirFirstDifference) {
    const std::string ahead(500, 'a'), behind(500, 'b');
    expectTexts(ahead + "1" + behind, ahead + "2" + behind,
                {"...\"" + std::string(16, 'a') + "1" + std::string(35, 'b') + "\"...",
                 "...\"" + std::string(16, 'a') + "2" + std::string(35, 'b') + "\"...",
                 "from character 500 on"});
    expectTexts(ahead, ahead + "左",
                {"...\"" + std::string(16, 'a') + "\"", "...\"" + std::string(16, 'a') + "左\"",
                 "from character 500 on"});
    expectTexts("", behind, {R"("")", '"' + std::string(52, 'b') + "\"...", "from character 0 on"});
}

TEST_F(CompareData, FindsADifferentNumber) {
    actual(kNumber).setDouble(std::numeric_limits<double>::denorm_min());
    expectOneMismatch("actual.number: differs: 0, 5e-324 (5e-324)");
}

TEST_F(CompareData, ShowsNumbersWithAllTheirDigits) {
    expectNumbers(0.1, 0.1 + 0x1p-56, {"0.1", "0.10000000000000002", "1.3877787807814457e-17"});
    expectNumbers(1e22, -1e300, {"1e+22", "-1e+300", "-1e+300"});
}

TEST_F(CompareData, ShowsANanWithItsBitsAndNoDifferenceOfWhatIsInfinite) {
    using Limits = std::numeric_limits<double>;
    expectNumbers(1, Limits::quiet_NaN(), {"1", "nan 0x7ff8000000000000", ""});
    expectNumbers(Limits::infinity(), -Limits::infinity(), {"inf", "-inf", ""});
    expectNumbers(Limits::max(), Limits::lowest(),
                  {"1.7976931348623157e+308", "-1.7976931348623157e+308", ""});
}

TEST_F(CompareData, TellsNegativeZeroFromZero) {
    actual(kNumber).setDouble(-0.0);
    expectOneMismatch("actual.number: differs: 0, -0 (only in the sign of zero)");
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
    expectOneMismatch("actual.flag: differs: false, true ()");
    EXPECT_EQ(std::get<bool>(compare().firstMismatch->actualValue), true);
}

TEST_F(CompareData, FindsADifferentInteger) {
    expected().child(kCount).handle.asInt() = std::numeric_limits<int>::max();
    actual(kCount).setInt(-1);
    expectOneMismatch("actual.count: differs: 2147483647, -1 (-2147483648)");
}

TEST_F(CompareData, FindsADifferentChoiceAndNamesThoseThatHaveNames) {
    actual(kChoice).setShort(1);
    expectOneMismatch("actual.choice: differs: 0 (first), 1 (second) ()");
    actual(kChoice).setShort(-7);
    expectOneMismatch("actual.choice: differs: 0 (first), -7 ()");
}

TEST_F(CompareData, FindsADifferenceInANestedCompound) {
    actual().child(kNested).child(0).handle.asDouble() = 1;
    expectOneMismatch("actual.nested.value: differs: 0, 1 (1)");
}

TEST_F(CompareData, FindsADifferenceInAnElement) {
    VArrayDataHandle array(actual(kNames));
    array.next();
    array.outputValue().setString("a");
    expectOneMismatch(R"(actual.names[1]: differs: "", "a" (from character 0 on))");
    EXPECT_EQ(compare().firstMismatch->indices, std::vector<unsigned>{1});
}

TEST_F(CompareData, FindsAnElementTooFew) {
    setIndices(actual().child(kNames), {0});
    expectOneMismatch("actual.names: has another number of elements: 2, 1 (-1)");
}

TEST_F(CompareData, FindsAnElementTooMany) {
    setIndices(actual().child(kNames), {0, 1, 2});
    expectOneMismatch("actual.names: has another number of elements: 2, 3 (1)");
}

TEST_F(CompareData, FindsAnotherLogicalIndex) {
    setIndices(actual().child(kNames), {0, 4});
    expectOneMismatch("actual.names[1]: is at another index: 1, 4 (3)");
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

TEST_F(SpoilData, IsSeenInEachLeafThatNobodyWroteSince) {
    std::vector<Mismatch> found;
    spoilData(actual());
    Comparison comparison;
    compareData(expected(), actual(), comparison,
                [&](const Mismatch& mismatch) { found.push_back(mismatch); });
    ASSERT_EQ(found.size(), 9U);
    for (const Mismatch& mismatch : found) {
        const bool isBool = mismatch.path == "flag";
        EXPECT_EQ(mismatch.what, isBool ? "differs" : "was not written") << mismatch.path;
        EXPECT_EQ(mismatch.actual, isBool ? "true" : "") << mismatch.path;
        EXPECT_NE(mismatch.expected, "") << mismatch.path;
        EXPECT_NE(mismatch.expectedValue.index(), 0U) << mismatch.path;
    }
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
