// What the built plugin says that it carries, and the attributes that it gives a host node.
#include "tests/end_to_end/RigNode.h"
#include "tests/support/AttributeTree.h"
#include "tests/support/CarriedTypes.h"
#include "tests/support/ShownErrors.h"

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

TEST(BuiltPlugin, NamesTheTypesThatItCarries) {
    const TranslationLibrary library(TOLVANE_PLUGIN);
    Pelmor::Array<Pelmor::String> names;
    names.append("a former name");
    library.translation().getSupportedTypeNames(names);
    EXPECT_EQ(namesOf(names), carriedTypes());
}

TEST(BuiltPlugin, GivesTheTypesThatItCarriesOfALibraryOfTypes) {
    const TranslationLibrary library(TOLVANE_PLUGIN);
    const Pelmor::Library types;
    Pelmor::EntityIndexedList<Pelmor::Type> supported;
    library.translation().getSupportedTypes(types, supported);
    EXPECT_EQ(supported.size(), carriedTypes().size());
}

class PortOfEveryType : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(Carried, PortOfEveryType, testing::ValuesIn(carriedTypes()), nameOfTest);

TEST_P(PortOfEveryType, IsAnAttributeThatFitsItsDirection) {
    const TranslationLibrary library(TOLVANE_PLUGIN);
    RigNode node(library.translation(), "rig");
    ShownErrors errors;
    ASSERT_TRUE(node.addPorts(GetParam().c_str()));
    EXPECT_EQ(node.hostNode().attributeCount(), 2u);
    const std::string end = GetParam().find("array<") == 0 ? "au" : "-u";
    EXPECT_EQ(treeOf(node.plug("in").attribute()).front(), "in: compound -wk" + end);
    EXPECT_EQ(treeOf(node.plug("out").attribute()).front(), "out: compound r--" + end);
    EXPECT_FALSE(node.addPorts(GetParam().c_str()));
    EXPECT_EQ(errors.messages(),
              ShownErrors::Messages{"A port with the name in already exists on the node rig."});
}

TEST(PortOfNoCarriedType, GetsNoAttributeAndAMessage) {
    const TranslationLibrary library(TOLVANE_PLUGIN);
    RigNode node(library.translation(), "rig");
    ShownErrors errors;
    EXPECT_FALSE(node.addPort("speed", PortDirection::Input, "double"));
    EXPECT_FALSE(node.addPort("pins", PortDirection::Input, "array<array<Rigging::Module::Pins>>"));
    EXPECT_EQ(errors.messages(),
              (ShownErrors::Messages{
                  "Fail to create attribute speed on node rig.",
                  "Multi dimension array of type Rigging::Module::Pins is not supported."}));
    EXPECT_EQ(node.hostNode().attributeCount(), 0u);
    EXPECT_TRUE(node.graphNode().ports().empty());
}

}  // namespace
