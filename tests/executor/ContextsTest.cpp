// The layout of the records that go through the interface between separately built libraries.
#include <OpenVornik/VFnDependencyNode.h>
#include <TavrikGraph/Executor/HostContext.h>
#include <TavrikGraph/Executor/NodeEditContext.h>
#include <TavrikGraph/Executor/PortDirection.h>

#include <cstdint>
#include <cstring>

#include <gtest/gtest.h>

namespace {

using TavrikGraph::Executor::HostContext;
using TavrikGraph::Executor::NodeEditContext;
using TavrikGraph::Executor::PortDirection;

const void* wordOf(const void* record, unsigned index) {
    const void* word;
    std::memcpy(&word, static_cast<const char*>(record) + index * sizeof word, sizeof word);
    return word;
}

TEST(HostContext, HasThePlugInItsSecondWordAndTheDataBlockInItsThird) {
    VPlug plug;
    VDataBlock dataBlock;
    const int evaluation = 0;
    const HostContext context{&evaluation, &plug, &dataBlock};
    EXPECT_EQ(sizeof context, 3 * sizeof(void*));
    EXPECT_EQ(wordOf(&context, 0), &evaluation);
    EXPECT_EQ(wordOf(&context, 1), &plug);
    EXPECT_EQ(wordOf(&context, 2), &dataBlock);
}

TEST(NodeEditContext, HasTheNodeInItsSecondWordAndTheModifierInItsFourth) {
    VFnDependencyNode node;
    const VObject object = node.create("walk");
    VDGModifier modifier;
    const int graph = 0, edit = 0;
    const NodeEditContext context{&graph, object, &edit, &modifier};
    EXPECT_EQ(sizeof context, 4 * sizeof(void*));
    EXPECT_EQ(wordOf(&context, 0), &graph);
    EXPECT_EQ(wordOf(&context, 1), wordOf(&object, 0));
    EXPECT_EQ(wordOf(&context, 2), &edit);
    EXPECT_EQ(wordOf(&context, 3), &modifier);
}

TEST(PortDirection, IsA32BitCodeThatIsOneForInputs) {
    EXPECT_EQ(sizeof(PortDirection), 4u);
    EXPECT_EQ(static_cast<std::int32_t>(PortDirection::Input), 1);
    EXPECT_NE(static_cast<std::int32_t>(PortDirection::Output), 1);
}

}  // namespace
