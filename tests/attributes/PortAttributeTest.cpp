#include "attributes/PortAttribute.h"
#include "tests/support/AttributeTree.h"

#include <Pelmor/Library.h>

#include <cstdint>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Tolvane;
using Lines = TestSupport::AttributeLines;
using TestSupport::treeOf;

class PortAttribute : public testing::Test {
protected:
    Pelmor::Library library;
};

TEST_F(PortAttribute, IsNullForALeafType) {
    for (const char* type : {"double", "string", "Math::double4x4", "Object", "bool", "int"}) {
        SCOPED_TRACE(type);
        for (const bool isInput : {true, false}) {
            const std::string array = std::string("array<") + type + ">";
            const std::string arrayOfArrays = "array<" + array + ">";
            for (const char* name : {type, array.c_str(), arrayOfArrays.c_str()})
                EXPECT_TRUE(createPortAttribute(library.getType(name), "port", isInput).isNull());
        }
    }
}

TEST_F(PortAttribute, OfAnEnumHasOneFieldPerEnumeratorInOrder) {
    const Pelmor::Type type =
        library.defineEnum("Rigging::Mode", {{"late", 7}, {"off", 0}, {"early", -3}});
    EXPECT_EQ(treeOf(createPortAttribute(type, "port", true)),
              (Lines{"port: enum of 0 -wk-u", "  late = 7", "  off = 0", "  early = -3"}));
    EXPECT_EQ(treeOf(createPortAttribute(type, "port", false)),
              (Lines{"port: enum of 0 r---u", "  late = 7", "  off = 0", "  early = -3"}));
}

TEST_F(PortAttribute, OfAnArrayOfAnEnumIsTheSameButAnArray) {
    const Pelmor::Type type =
        Pelmor::Library::arrayOf(library.defineEnum("Rigging::Mode", {{"off", 0}, {"on", 1}}));
    EXPECT_EQ(treeOf(createPortAttribute(type, "port", true)),
              (Lines{"port: enum of 0 -wkau", "  off = 0", "  on = 1"}));
    EXPECT_EQ(treeOf(createPortAttribute(type, "port", false)),
              (Lines{"port: enum of 0 r--au", "  off = 0", "  on = 1"}));
}

TEST_F(PortAttribute, OfAnEnumWithoutEnumeratorsHasNoFields) {
    const Pelmor::Type type = library.defineEnum("Rigging::Empty", {});
    EXPECT_EQ(treeOf(createPortAttribute(type, "port", true)), Lines{"port: enum of 0 -wk-u"});
}

TEST_F(PortAttribute, OfAnEnumKeepsTheLow16BitsOfEachValue) {
    using Limits = std::numeric_limits<std::int32_t>;
    const Pelmor::Type type = library.defineEnum("Rigging::Wide", {{"a", 70000},
                                                                   {"b", 32767},
                                                                   {"c", 32768},
                                                                   {"d", 65535},
                                                                   {"e", 65536},
                                                                   {"f", -1},
                                                                   {"g", -32768},
                                                                   {"h", -32769},
                                                                   {"i", -70000},
                                                                   {"j", Limits::max()},
                                                                   {"k", Limits::min()}});
    EXPECT_EQ(treeOf(createPortAttribute(type, "port", true)),
              (Lines{"port: enum of 0 -wk-u", "  a = 4464", "  b = 32767", "  c = -32768",
                     "  d = -1", "  e = 0", "  f = -1", "  g = -32768", "  h = 32767",
                     "  i = -4464", "  j = -1", "  k = 0"}));
}

TEST_F(PortAttribute, OfAStructWithoutMembersIsACompoundWithoutChildren) {
    const Pelmor::Type type = library.defineStruct("Rigging::Empty", {});
    EXPECT_EQ(treeOf(createPortAttribute(type, "port", true)), Lines{"port: compound -wk-u"});
    EXPECT_EQ(treeOf(createPortAttribute(type, "port", false)), Lines{"port: compound r---u"});
}

TEST_F(PortAttribute, OfAnArrayOfArraysIsNoArray) {
    const Pelmor::Type type = library.getType("array<array<Rigging::Module::Pins>>");
    EXPECT_EQ(
        treeOf(createPortAttribute(type, "port", true)),
        (Lines{"port: compound -wk-u", "  names: typed 4 rw-a-", "  matrices: matrix 1 rw-a-"}));
}

TEST_F(PortAttribute, KeepsItsNameEvenIfItIsWeights) {
    const Pelmor::Type type = library.defineStruct("Rigging::Empty", {});
    EXPECT_EQ(treeOf(createPortAttribute(type, "weights", true)), Lines{"weights: compound -wk-u"});
}

TEST_F(PortAttribute, IsANewOneEachTime) {
    const Pelmor::Type type = library.getType("Rigging::Module::Pins");
    EXPECT_NE(createPortAttribute(type, "port", true), createPortAttribute(type, "port", true));
}

}  // namespace
