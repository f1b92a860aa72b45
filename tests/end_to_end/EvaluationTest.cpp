// Data through the built plugin: from the host into the graph and back, to the bit.
#include "tests/end_to_end/RigNode.h"
#include "tests/support/CarriedTypes.h"
#include "tests/support/RecordLeaves.h"
#include "tests/support/ShownErrors.h"

#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using TavrikGraph::Executor::TranslationLibrary;

class Evaluation : public testing::Test {
protected:
    TranslationLibrary m_library{TOLVANE_PLUGIN};
    RigNode m_node{m_library.translation(), "rig"};
};

class EvaluationOfEveryType : public Evaluation, public testing::WithParamInterface<std::string> {
protected:
    void SetUp() override { ASSERT_TRUE(m_node.addPorts(GetParam().c_str())); }
};

INSTANTIATE_TEST_SUITE_P(Carried, EvaluationOfEveryType, testing::ValuesIn(carriedTypes()),
                         nameOfTest);

TEST_P(EvaluationOfEveryType, CarriesEveryLeafToTheBit) {
    ShownErrors errors;
    m_node.fill("in", Numbers());
    const Leaves input = m_node.leaves("in");
    EXPECT_NE(m_node.leaves("out"), input);
    EXPECT_TRUE(m_node.evaluate());
    EXPECT_EQ(m_node.leaves("out"), input);
    EXPECT_EQ(m_node.leaves("in"), input);
    EXPECT_TRUE(m_node.isClean("out"));
    EXPECT_EQ(errors.messages(), ShownErrors::Messages{});
}

TEST_P(EvaluationOfEveryType, FollowsArraysThatGrowAndShrink) {
    const std::vector<std::vector<unsigned>> lengths{{2, 3, 1}, {0},    {5}, {1, 0, 2}, {3, 1},
                                                     {4},       {3, 3}, {0}, {1}};
    unsigned first = 1;
    for (const auto& frame : lengths) {
        m_node.fill("in", Numbers(first += 100, frame));
        ASSERT_TRUE(m_node.evaluate());
        ASSERT_EQ(m_node.leaves("out"), m_node.leaves("in"));
    }
}

TEST_P(EvaluationOfEveryType, HappensWhenTheHostAsksForTheOutput) {
    m_node.fill("in", Numbers());
    VPlug plug = m_node.plug("out");
    const VDataHandle handle = m_node.hostNode().dataBlock().inputValue(plug);
    EXPECT_EQ(leavesOf(handle, plug), m_node.leaves("in"));
}

TEST_P(EvaluationOfEveryType, LeavesTheOutputDirtyWithoutAValue) {
    RigNode silent(m_library.translation(), "silent", [](const auto&, const auto&) {});
    ASSERT_TRUE(silent.addPorts(GetParam().c_str()));
    silent.fill("in", Numbers());
    const Leaves before = silent.leaves("out");
    EXPECT_FALSE(silent.evaluate());
    EXPECT_TRUE(silent.graphNode().ports()[0].translated);
    EXPECT_FALSE(silent.graphNode().ports()[1].translated);
    EXPECT_EQ(silent.leaves("out"), before);
    EXPECT_FALSE(silent.isClean("out"));
}

// The holder's words are moved by the plugin's own manager of the type.
TEST_P(EvaluationOfEveryType, MovesAValueAndLeavesItsHolderWithNullWords) {
    m_node.fill("in", Numbers());
    VPlug plug = m_node.plug("in");
    VDataBlock block = m_node.hostNode().dataBlock();
    const Pelmor::Type type = Pelmor::Library().getType(GetParam().c_str());
    Pelmor::AnyValue source;
    ASSERT_TRUE(m_library.translation().translateFromHost(type, source, {nullptr, &plug, &block}));
    const Pelmor::AnyValueWords before = source.words(), none{};
    ASSERT_NE(before.manager, nullptr);
    const Pelmor::AnyValue destination(std::move(source));
    EXPECT_EQ(std::memcmp(&source.words(), &none, sizeof none), 0);
    EXPECT_EQ(std::memcmp(&destination.words(), &before, sizeof before), 0);
}

TEST_F(Evaluation, CarriesAllTypesInOneNode) {
    unsigned first = 1;
    for (const std::string& type : carriedTypes()) {
        const std::string in = "in " + type, out = "out " + type;
        ASSERT_TRUE(m_node.addPort(in.c_str(), PortDirection::Input, type.c_str()));
        ASSERT_TRUE(m_node.addPort(out.c_str(), PortDirection::Output, type.c_str()));
        m_node.fill(in.c_str(), Numbers(first += 1000));
    }
    EXPECT_TRUE(m_node.evaluate());
    for (const std::string& type : carriedTypes())
        EXPECT_EQ(m_node.leaves(("out " + type).c_str()), m_node.leaves(("in " + type).c_str()));
}

// A library that has the same types takes the values apart and makes others of its own.
TEST_F(Evaluation, LetsAGraphUseItsValuesAndUsesThoseOfTheGraph) {
    using namespace Rigging::Module;
    RigNode node(m_library.translation(), "namer", [](const auto& inputs, const auto& outputs) {
        const auto* pins = inputs[0]->template getIf<Pins>();
        if (!pins) return;
        Outputs made;
        made.name = (*pins->names)[1];
        made.pins = *pins;
        *outputs[0] = Pelmor::AnyValue::holding(made);
    });
    ASSERT_TRUE(node.addPort("pins", PortDirection::Input, "Rigging::Module::Pins"));
    ASSERT_TRUE(node.addPort("made", PortDirection::Output, "Rigging::Module::Outputs"));
    node.fill("pins", Numbers());
    EXPECT_TRUE(node.evaluate());
    Outputs expected;
    expected.pins = numbered<Pins>();
    expected.name = (*expected.pins.names)[1];
    EXPECT_EQ(node.leaves("made"), leavesOf(expected));
}

}  // namespace
