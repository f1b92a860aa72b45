// Data through the built plugin: from the host into the graph and back, to the bit.
#include "tests/end_to_end/RigNode.h"
#include "tests/support/CarriedTypes.h"
#include "tests/support/RecordLeaves.h"
#include "tests/support/ShownErrors.h"

#include <OpenVornik/VDGModifier.h>
#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <cstring>
#include <limits>
#include <string>
#include <thread>
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

TEST_F(Evaluation, CarriesNumbersThatCompareUnequalOrAlike) {
    ASSERT_TRUE(m_node.addPorts("Core::Transform::Transform"));
    double values[4] = {-0.0, std::numeric_limits<double>::denorm_min(),
                        -std::numeric_limits<double>::infinity(), 0.0};
    const std::uint64_t bits = 0x7ff4000000000abc;
    std::memcpy(&values[3], &bits, sizeof bits);
    const auto row = [&](const char* port) {
        return m_node.data(port).child(m_node.plug(port).child(6)).asMatrix()[2];
    };
    std::memcpy(row("in"), values, sizeof values);
    EXPECT_TRUE(m_node.evaluate());
    EXPECT_EQ(std::memcmp(row("out"), values, sizeof values), 0);
}

TEST_F(Evaluation, CarriesAllTypesInOneNode) {
    for (const std::string& type : carriedTypes()) {
        const std::string name(type);
        ASSERT_TRUE(m_node.addPort(("in " + name).c_str(), PortDirection::Input, type.c_str()));
        ASSERT_TRUE(m_node.addPort(("out " + name).c_str(), PortDirection::Output, type.c_str()));
    }
    unsigned first = 1;
    for (const std::string& type : carriedTypes())
        m_node.fill(("in " + std::string(type)).c_str(), Numbers(first += 1000));
    EXPECT_TRUE(m_node.evaluate());
    for (const std::string& type : carriedTypes())
        EXPECT_EQ(m_node.leaves(("out " + std::string(type)).c_str()),
                  m_node.leaves(("in " + std::string(type)).c_str()))
            << type;
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

TEST_F(Evaluation, GoesFromNodeToNode) {
    RigNode second(m_library.translation(), "second");
    ASSERT_TRUE(m_node.addPorts("array<Rigging::Module::InputsControls>"));
    ASSERT_TRUE(second.addPorts("array<Rigging::Module::InputsControls>"));
    VDGModifier modifier;
    ASSERT_FALSE(modifier.connect(m_node.plug("out"), second.plug("in")).error());
    ASSERT_FALSE(modifier.doIt().error());
    for (const unsigned first : {1u, 500u}) {
        m_node.fill("in", Numbers(first, {first == 1 ? 3u : 2u, 1}));
        second.hostNode().dataBlock().inputValue(second.plug("out"));
        EXPECT_EQ(second.leaves("out"), m_node.leaves("in"));
        EXPECT_EQ(second.leaves("in"), m_node.leaves("in"));
    }
}

TEST_F(Evaluation, RunsOnTwoThreadsThatShareAValue) {
    using namespace Rigging::Module;
    InputsControls shared = numbered<InputsControls>(Numbers(5000));
    const Leaves sharedLeaves = leavesOf(shared);
    const auto mismatches = [&](unsigned first, Pelmor::AnyValue value) {
        RigNode node(m_library.translation(), "of a thread",
                     [&](const auto& inputs, const auto& outputs) {
                         *outputs[0] = *inputs[0];
                         *outputs[1] = value;
                     });
        unsigned count = 0;
        count += !node.addPorts("Rigging::Module::Inputs");
        count += !node.addPort("shared", PortDirection::Output, "Rigging::Module::InputsControls");
        for (unsigned frame = 0; frame < 100; ++frame) {
            node.fill("in", Numbers(first + frame, {frame % 4, 2, frame % 3}));
            count += !node.evaluate();
            count += node.leaves("out") != node.leaves("in");
            count += node.leaves("shared") != sharedLeaves;
        }
        return count;
    };
    unsigned firstMismatches = 1;
    unsigned secondMismatches = 1;
    {
        const Pelmor::AnyValue value = Pelmor::AnyValue::holding(shared);
        std::thread first([&] { firstMismatches = mismatches(1, value); });
        std::thread second([&] { secondMismatches = mismatches(20000, value); });
        first.join();
        second.join();
    }
    EXPECT_EQ(firstMismatches, 0u);
    EXPECT_EQ(secondMismatches, 0u);
    EXPECT_EQ(shared.weights.useCount(), 1u);
    EXPECT_EQ(shared.namedTransforms.transforms.useCount(), 1u);
    EXPECT_EQ(leavesOf(shared), sharedLeaves);
}

}  // namespace
