// What the built plugin says that it carries, and the attributes that it gives a host node.
#include "tests/end_to_end/RigNode.h"
#include "tests/support/CarriedTypes.h"
#include "tests/support/ShownErrors.h"

#include <OpenVornik/VFnAttribute.h>
#include <Pelmor/Array.h>
#include <Pelmor/EntityIndexedList.h>
#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using TavrikGraph::Executor::TranslationLibrary;

std::vector<std::string> namesOf(const Pelmor::Array<Pelmor::String>& array) {
    std::vector<std::string> names;
    for (const Pelmor::String& name : array) names.push_back(name.c_str());
    return names;
}

TEST(BuiltPlugin, IsNamed) {
    const TranslationLibrary library(TOLVANE_PLUGIN);
    EXPECT_EQ(library.translation().name(), "Rigging Translation Table");
}

TEST(BuiltPlugin, NamesTheFourteenTypesThatItCarries) {
    const TranslationLibrary library(TOLVANE_PLUGIN);
    Pelmor::Array<Pelmor::String> names;
    names.append("a former name");
    library.translation().getSupportedTypeNames(names);
    EXPECT_EQ(namesOf(names),
              std::vector<std::string>(carriedTypes().begin(), carriedTypes().end()));
}

TEST(BuiltPlugin, GivesTheFourteenTypesOfALibraryOfTypes) {
    const TranslationLibrary library(TOLVANE_PLUGIN);
    const Pelmor::Library types;
    Pelmor::EntityIndexedList<Pelmor::Type> supported;
    library.translation().getSupportedTypes(types, supported);
    EXPECT_EQ(supported.size(), 14u);
}

class PortOfEveryType : public testing::TestWithParam<std::string> {
protected:
    VFnAttribute attributeOf(const char* port) const {
        return VFnAttribute(m_node.plug(port).attribute());
    }

    TranslationLibrary m_library{TOLVANE_PLUGIN};
    RigNode m_node{m_library.translation(), "rig"};
};

INSTANTIATE_TEST_SUITE_P(Carried, PortOfEveryType, testing::ValuesIn(carriedTypes()), nameOfTest);

TEST_P(PortOfEveryType, IsAnAttributeThatFitsItsDirection) {
    ShownErrors errors;
    ASSERT_TRUE(m_node.addPorts(GetParam().c_str()));
    EXPECT_EQ(m_node.hostNode().attributeCount(), 2u);
    for (const char* port : {"in", "out"}) {
        const VFnAttribute attribute = attributeOf(port);
        const bool isInput = port == std::string("in");
        EXPECT_EQ(attribute.kind(), VFnAttribute::kCompound);
        EXPECT_EQ(attribute.isArray(), std::string(GetParam().c_str()).find("array<") == 0);
        EXPECT_EQ(attribute.isWritable(), isInput);
        EXPECT_EQ(attribute.isKeyable(), isInput);
        EXPECT_EQ(attribute.isReadable(), !isInput);
    }
    EXPECT_EQ(errors.messages(), ShownErrors::Messages{});
}

TEST_P(PortOfEveryType, IsRefusedASecondTime) {
    ASSERT_TRUE(m_node.addPorts(GetParam().c_str()));
    ShownErrors errors;
    EXPECT_FALSE(m_node.addPort("in", PortDirection::Input, GetParam().c_str()));
    EXPECT_EQ(errors.messages(),
              ShownErrors::Messages{"A port with the name in already exists on the node rig."});
    EXPECT_EQ(m_node.hostNode().attributeCount(), 2u);
}

class PortOfNoCarriedType : public PortOfEveryType {};
INSTANTIATE_TEST_SUITE_P(NotCarried, PortOfNoCarriedType,
                         testing::Values("double", "string", "Math::double4x4", "Object", "bool",
                                         "int", "array<double>"),
                         nameOfTest);

TEST_P(PortOfNoCarriedType, GetsNoAttributeAndAMessage) {
    ShownErrors errors;
    EXPECT_FALSE(m_node.addPort("speed", PortDirection::Input, GetParam().c_str()));
    EXPECT_EQ(errors.messages(),
              ShownErrors::Messages{"Fail to create attribute speed on node rig."});
    EXPECT_EQ(m_node.hostNode().attributeCount(), 0u);
    EXPECT_TRUE(m_node.graphNode().ports().empty());
}

TEST(PortOfAnArrayOfArrays, GetsNoAttributeAndAMessage) {
    const TranslationLibrary library(TOLVANE_PLUGIN);
    RigNode node(library.translation(), "rig");
    ShownErrors errors;
    EXPECT_FALSE(node.addPort("pins", PortDirection::Input, "array<array<Rigging::Module::Pins>>"));
    EXPECT_EQ(errors.messages(),
              ShownErrors::Messages{
                  "Multi dimension array of type Rigging::Module::Pins is not supported."});
}

}  // namespace
