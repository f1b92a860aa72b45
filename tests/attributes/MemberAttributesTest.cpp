// What each kind of member becomes, in structs of a library of one's own.
#include "tests/support/AttributeTree.h"

#include <Pelmor/Library.h>
#include <Tolvane/attributes/PortAttribute.h>

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane;
using Lines = TestSupport::AttributeLines;
using Members = std::vector<Pelmor::StructType::Member>;

class MemberAttributes : public testing::Test {
protected:
    Pelmor::Type type(const char* name) const { return library.getType(name); }

    // The tree of an input port of a struct of these members, without the line of the port itself.
    Lines childrenOf(Members members, bool isInput = true) {
        const Pelmor::Type own = library.defineStruct("Rigging::Own", std::move(members));
        Lines lines = TestSupport::treeOf(createPortAttribute(own, "port", isInput));
        lines.erase(lines.begin());
        return lines;
    }

    Pelmor::Library library;
};

TEST_F(MemberAttributes, KeepTheHostsDefaultsWhereTheyAreLeaves) {
    const Lines expected{"  a: typed 4 rw---",
                         "  b: matrix 1 rw---",
                         "  c: numeric 14 of 0.000000 rw---",
                         "  d: generic 0 rw---",
                         "  e: numeric 1 of 0.000000 rw---",
                         "  f: numeric 7 of 0.000000 rw---"};
    const Members members{{"a", type("string")}, {"b", type("Math::double4x4")},
                          {"c", type("double")}, {"d", type("Object")},
                          {"e", type("bool")},   {"f", type("int")}};
    EXPECT_EQ(childrenOf(members, true), expected);
    library = Pelmor::Library();
    EXPECT_EQ(childrenOf(members, false), expected);
}

TEST_F(MemberAttributes, AreArraysForArraysOfStringsMatricesDoublesAndObjects) {
    EXPECT_EQ(childrenOf({{"a", type("array<string>")},
                          {"b", type("array<Math::double4x4>")},
                          {"c", type("array<double>")},
                          {"d", type("array<Object>")}}),
              (Lines{"  a: typed 4 rw-a-", "  b: matrix 1 rw-a-",
                     "  c: numeric 14 of 0.000000 rw-a-", "  d: generic 0 rw-a-"}));
}

TEST_F(MemberAttributes, AreSingleForArraysOfBoolsAndInts) {
    EXPECT_EQ(childrenOf({{"a", type("array<bool>")}, {"b", type("array<int>")}}),
              (Lines{"  a: numeric 1 of 0.000000 rw---", "  b: numeric 7 of 0.000000 rw---"}));
}

TEST_F(MemberAttributes, AreArraysForArraysOfTransformsAndOfNoOtherStruct) {
    const Pelmor::Type own = library.defineStruct("Rigging::Part", {{"a", type("double")}});
    const Lines children = childrenOf({{"transforms", type("array<Core::Transform::Transform>")},
                                       {"transform", type("Core::Transform::Transform")},
                                       {"parts", Pelmor::Library::arrayOf(own)},
                                       {"part", own},
                                       {"pins", type("array<Rigging::Module::Pins>")}});
    ASSERT_EQ(children.size(), 2u * 9 + 2 * 2 + 3);
    EXPECT_EQ(children[0], "  transforms: compound -wka-");
    EXPECT_EQ(children[9], "  transform: compound -wk--");
    EXPECT_EQ(children[18], "  parts: compound -wk--");
    EXPECT_EQ(children[19], "    a: numeric 14 of 0.000000 rw---");
    EXPECT_EQ(children[20], "  part: compound -wk--");
    EXPECT_EQ(children[22], "  pins: compound -wk--");
    EXPECT_EQ(children[23], "    names: typed 4 rw-a-");
}

TEST_F(MemberAttributes, CarryThePortsFlagsWhereTheyAreEnums) {
    const Pelmor::Type mode = library.defineEnum("Rigging::Mode", {{"off", 0}, {"on", 70000}});
    const Members members{{"one", mode}, {"many", Pelmor::Library::arrayOf(mode)}};
    EXPECT_EQ(childrenOf(members, true),
              (Lines{"  one: enum of 0 -wk--", "    off = 0", "    on = 4464",
                     "  many: enum of 0 -wka-", "    off = 0", "    on = 4464"}));
    library = Pelmor::Library();
    EXPECT_EQ(childrenOf(members, false),
              (Lines{"  one: enum of 0 r----", "    off = 0", "    on = 4464",
                     "  many: enum of 0 r--a-", "    off = 0", "    on = 4464"}));
}

TEST_F(MemberAttributes, ArePassedOverForArraysOfArrays) {
    const Pelmor::Type mode = library.defineEnum("Rigging::Mode", {});
    const Pelmor::Type modes = Pelmor::Library::arrayOf(mode);
    EXPECT_EQ(childrenOf({{"before", type("double")},
                          {"doubles", type("array<array<double>>")},
                          {"strings", type("array<array<string>>")},
                          {"transforms", type("array<array<Core::Transform::Transform>>")},
                          {"pins", type("array<array<array<Rigging::Module::Pins>>>")},
                          {"modes", Pelmor::Library::arrayOf(modes)},
                          {"after", type("string")}}),
              (Lines{"  before: numeric 14 of 0.000000 rw---", "  after: typed 4 rw---"}));
}

TEST_F(MemberAttributes, AreNamedWeightsAWhereTheMemberIsNamedWeightsAtAnyDepth) {
    Pelmor::Type nested = library.defineStruct("Rigging::Level0", {{"weights", type("bool")}});
    for (const char* name : {"Rigging::Level1", "Rigging::Level2", "Rigging::Level3"})
        nested = library.defineStruct(name, {{"weights", type("double")}, {"inner", nested}});
    EXPECT_EQ(
        childrenOf({{"weights", type("Math::double4x4")}, {"inner", nested}}),
        (Lines{"  weights_A: matrix 1 rw---", "  inner: compound -wk--",
               "    weights_A: numeric 14 of 0.000000 rw---", "    inner: compound -wk--",
               "      weights_A: numeric 14 of 0.000000 rw---", "      inner: compound -wk--",
               "        weights_A: numeric 14 of 0.000000 rw---", "        inner: compound -wk--",
               "          weights_A: numeric 1 of 0.000000 rw---"}));
}

TEST_F(MemberAttributes, KeepEveryOtherName) {
    Members members;
    Lines expected;
    for (const std::string& name :
         {std::string("Weights"), std::string("WEIGHTS"), std::string("weight"),
          std::string("weightss"), std::string("weights_"), std::string("weights_A"),
          std::string("weights_a"), std::string(" weights"), std::string("weights "),
          std::string("my_weights"), std::string("wEights"), std::string("weights\t"),
          std::string("  edged "), std::string("M\xc3\xbcll\xff"), std::string(300, 'a'),
          std::string(299, 'a') + 'b'}) {
        members.push_back({name.c_str(), type("int")});
        expected.push_back("  " + name + ": numeric 7 of 0.000000 rw---");
    }
    EXPECT_EQ(childrenOf(members), expected);
}

TEST_F(MemberAttributes, StandInTheOrderOfTheMembersWhateverTheirNames) {
    const Pelmor::Type empty = library.defineStruct("Rigging::Empty", {});
    EXPECT_EQ(
        childrenOf({{"z", type("int")},
                    {"m", empty},
                    {"a", type("string")},
                    {"y", type("double")},
                    {"b", type("bool")}}),
        (Lines{"  z: numeric 7 of 0.000000 rw---", "  m: compound -wk--", "  a: typed 4 rw---",
               "  y: numeric 14 of 0.000000 rw---", "  b: numeric 1 of 0.000000 rw---"}));
}

TEST_F(MemberAttributes, FollowNestedStructsToAnyDepth) {
    Pelmor::Type nested = library.defineStruct("Rigging::Level0", {{"leaf", type("double")}});
    for (int level = 1; level <= 20; ++level) {
        const std::string name = "Rigging::Level" + std::to_string(level);
        nested = library.defineStruct(name.c_str(), {{"inner", nested}});
    }
    const Lines children = childrenOf({{"inner", nested}});
    ASSERT_EQ(children.size(), 22u);
    for (std::size_t i = 0; i < 21; ++i)
        EXPECT_EQ(children[i], std::string(2 * (i + 1), ' ') + "inner: compound -wk--");
    EXPECT_EQ(children[21], std::string(44, ' ') + "leaf: numeric 14 of 0.000000 rw---");
}

TEST_F(MemberAttributes, AreAsManyAsTheMembersHoweverManyTheyAre) {
    for (const std::size_t count : {16u, 17u, 40u, 300u}) {
        library = Pelmor::Library();
        Members members;
        Lines expected;
        for (std::size_t i = 0; i < count; ++i) {
            const std::string name = "member" + std::to_string(i);
            members.push_back({name.c_str(), type(i % 2 == 0 ? "double" : "array<string>")});
            expected.push_back("  " + name +
                               (i % 2 == 0 ? ": numeric 14 of 0.000000 rw---" : ": typed 4 rw-a-"));
        }
        EXPECT_EQ(childrenOf(members), expected);
    }
}

TEST_F(MemberAttributes, AreNoneForAScalarThatNobodyKnows) {
    EXPECT_EQ(
        childrenOf({{"before", type("int")},
                    {"unknown", type("float")},
                    {"unknowns", type("array<float>")},
                    {"after", type("bool")}}),
        (Lines{"  before: numeric 7 of 0.000000 rw---", "  after: numeric 1 of 0.000000 rw---"}));
}

// A type whose name only resembles a known one gets what its kind says: here an array of a struct,
// which is a single compound, or an array of an enum.
TEST_F(MemberAttributes, GoByTheExactNameOfTheType) {
    for (const std::string known : {"string", "Math::double4x4", "Core::Transform::Transform",
                                    "double", "Object", "bool", "int"}) {
        std::string lower = known, upper = known;
        lower.back() = static_cast<char>(known.back() ^ 0x20);
        upper.front() = static_cast<char>(known.front() ^ 0x20);
        if (known == "Math::double4x4") lower = "math::Double4x4";
        for (const std::string& name :
             {lower, upper, "x::" + known, "x" + known, known + "x", known + " ", " " + known,
              known + "::x", known.substr(1), known.substr(0, known.size() - 1)}) {
            library = Pelmor::Library();
            const Pelmor::Type one =
                library.defineStruct(name.c_str(), {{"inner", type("double")}});
            EXPECT_EQ(childrenOf({{"many", Pelmor::Library::arrayOf(one)}}),
                      (Lines{"  many: compound -wk--", "    inner: numeric 14 of 0.000000 rw---"}))
                << '"' << name << '"';
            library = Pelmor::Library();
            const Pelmor::Type mode = library.defineEnum(name.c_str(), {{"on", 1}});
            EXPECT_EQ(childrenOf({{"many", Pelmor::Library::arrayOf(mode)}}),
                      (Lines{"  many: enum of 0 -wka-", "    on = 1"}))
                << '"' << name << '"';
        }
    }
}

}  // namespace
