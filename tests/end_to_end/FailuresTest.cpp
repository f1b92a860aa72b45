// What a user of the built plugin sees where the host refuses to take a value.
#include "tests/end_to_end/RigNode.h"
#include "tests/support/ShownErrors.h"

#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using TavrikGraph::Executor::TranslationLibrary;

class WriterFailure : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_node.addPorts("array<Rigging::Module::Pins>"));
        m_node.fill("in", Numbers());
    }

    TranslationLibrary m_library{TOLVANE_PLUGIN};
    RigNode m_node{m_library.translation(), "rig"};
};

TEST_F(WriterFailure, IsShownOnceAndLeavesTheOutputDirtyAndAsItWas) {
    setIndices(m_node.data("out"), {0, 5, 9});
    Numbers others(500);
    numberElements(others, m_node.data("out"), m_node.plug("out"));
    const Leaves before = m_node.leaves("out");
    ShownErrors errors;
    EXPECT_TRUE(m_node.evaluate());
    EXPECT_EQ(errors.messages(), ShownErrors::Messages{"Cannot remove element from array"});
    EXPECT_EQ(indicesOf(m_node.data("out")), (std::vector<unsigned>{0, 5, 9}));
    EXPECT_EQ(m_node.leaves("out"), before);
    EXPECT_FALSE(m_node.isClean("out"));
}

TEST_F(WriterFailure, IsShownAtEachEvaluationAndIsOverWhenItsCauseIs) {
    setIndices(m_node.data("out"), {0, 5, 9});
    ShownErrors errors;
    m_node.evaluate();
    m_node.evaluate();
    EXPECT_EQ(errors.messages().size(), 2u);
    setIndices(m_node.data("out"), {0, 1, 2});
    EXPECT_TRUE(m_node.evaluate());
    EXPECT_EQ(errors.messages().size(), 2u);
    EXPECT_EQ(m_node.leaves("out"), m_node.leaves("in"));
    EXPECT_TRUE(m_node.isClean("out"));
}

}  // namespace
