#include "tests/plugin/EditedNode.h"
#include "tests/support/CarriedTypes.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;

using PortAdded = EditedNode;

TEST_F(PortAdded, GivesAnInputPortAWritableAndKeyableCompound) {
    EXPECT_TRUE(add("port", "Rigging::Module::Inputs", PortDirection::Input));
    EXPECT_EQ(tree("port").front(), "port: compound -wk-u");
    EXPECT_EQ(attributeCount(), 1u);
}

TEST_F(PortAdded, GivesAPortOfAnyOtherDirectionAReadableCompound) {
    for (const int direction : {0, 2, 3, -1, 256, 257, 0x7fffffff}) {
        const std::string name = "port" + std::to_string(direction);
        EXPECT_TRUE(
            add(name.c_str(), "Rigging::Module::Inputs", static_cast<PortDirection>(direction)));
        EXPECT_EQ(tree(name.c_str()).front(), name + ": compound r---u");
    }
}

TEST_F(PortAdded, GivesEachCarriedTypeItsAttribute) {
    for (const std::string& type : TestSupport::carriedTypes())
        EXPECT_TRUE(add(TestSupport::asTestName(type).c_str(), type.c_str())) << type;
    EXPECT_EQ(attributeCount(), TestSupport::carriedTypes().size());
    EXPECT_EQ(errors.messages(), Messages());
}

TEST_F(PortAdded, IsFalseWhereThePortIsRefused) {
    EXPECT_FALSE(add("port", "double"));
    EXPECT_EQ(errors.messages().size(), 1u);
}

TEST_F(PortAdded, LooksAtNothingElseThatTheFrameworkPasses) {
    context.graph = this;
    context.edit = &context;
    const Pelmor::Type type = library.getType("Rigging::Module::Pins");
    EXPECT_TRUE(translation->portAdded("port", PortDirection::Input, type, 0xffffffffu, 0xffffffffu,
                                       &context));
    EXPECT_EQ(tree("port").front(), "port: compound -wk-u");
    EXPECT_EQ(context.graph, this);
    EXPECT_EQ(context.edit, &context);
    EXPECT_EQ(context.node, node);
    EXPECT_EQ(context.modifier, &modifier);
}

}  // namespace
