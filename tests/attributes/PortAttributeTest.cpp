#include "tests/support/AttributeTree.h"

#include <Pelmor/Library.h>
#include <Tolvane/attributes/PortAttribute.h>

#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

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
    for (const char* type :
         {"double", "string", "Math::double4x4", "Object", "bool", "int", "float"}) {
        SCOPED_TRACE(type);
        for (const bool isInput : {true, false}) {
            const std::string array = std::string("array<") + type + ">";
            const std::string arrayOfArrays = "array<" + array + ">";
            for (const char* name : {type, array.c_str(), arrayOfArrays.c_str()})
                EXPECT_TRUE(createPortAttribute(library.getType(name), "port", isInput).isNull());
        }
    }
}

TEST_F(PortAttribute, HasOneFieldPerEnumeratorInOrder) {
    const Pelmor::Type type =
        library.defineEnum("Rigging::Mode", {{"late", 7}, {"off", 0}, {"early", -3}, {"OFF", 0}});
    for (const auto& [isInput, flags] : {std::pair(true, "-wk"), std::pair(false, "r--")}) {
        const Lines fields{"  late = 7", "  off = 0", "  early = -3", "  OFF = 0"};
        Lines single{std::string("port: enum of 0 ") + flags + "-u"};
        Lines array{std::string("port: enum of 0 ") + flags + "au"};
        single.insert(single.end(), fields.begin(), fields.end());
        array.insert(array.end(), fields.begin(), fields.end());
        EXPECT_EQ(treeOf(createPortAttribute(type, "port", isInput)), single);
        EXPECT_EQ(treeOf(createPortAttribute(Pelmor::Library::arrayOf(type), "port", isInput)),
                  array);
    }
}

TEST_F(PortAttribute, HasAFieldForEachEnumeratorHoweverManyAndWhateverItsName) {
    for (const int count : {0, 16, 17, 300}) {
        library = Pelmor::Library();
        std::vector<Pelmor::EnumType::Enumeration> enumerations;
        Lines expected{"port: enum of 0 -wk-u"};
        for (int i = 0; i < count; ++i) {
            const std::string name = std::string(static_cast<std::size_t>(i), 'x') + " \xff";
            enumerations.push_back({name.c_str(), i / 2});
            expected.push_back("  " + name + " = " + std::to_string(i / 2));
        }
        const Pelmor::Type type = library.defineEnum("Rigging::Wide", std::move(enumerations));
        EXPECT_EQ(treeOf(createPortAttribute(type, "port", true)), expected);
    }
}

TEST_F(PortAttribute, KeepsTheLow16BitsOfEachEnumeratorsValue) {
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

TEST_F(PortAttribute, IsACompoundWithoutChildrenForAStructWithoutMembers) {
    const Pelmor::Type type = library.defineStruct("Rigging::Empty", {});
    EXPECT_EQ(treeOf(createPortAttribute(type, "port", true)), Lines{"port: compound -wk-u"});
    EXPECT_EQ(treeOf(createPortAttribute(type, "port", false)), Lines{"port: compound r---u"});
}

TEST_F(PortAttribute, IsNoArrayForAnArrayOfArrays) {
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
