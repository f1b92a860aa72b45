// What becomes of the translation's operations where the heap runs out, at each of their
// allocations in turn.
#include "tests/plugin/EditedNode.h"
#include "tests/plugin/Rig.h"
#include "tests/support/CarriedTypes.h"
#include "tests/support/Endings.h"
#include "tests/support/ShownErrors.h"

#include <OpenVornik/VFnNumericAttribute.h>

#include <functional>
#include <string>

namespace {

using namespace PluginTests;
using TestSupport::Ending;
using TestSupport::Endings;
using TestSupport::endingsWithoutMemory;
using TestSupport::times;

// Of an operation that takes memory at all.
void expectTermination(const std::function<void()>& operation) {
    const Endings endings = endingsWithoutMemory(operation);
    EXPECT_GT(endings.size(), 0u);
    EXPECT_EQ(endings, times(endings.size(), Ending::kTerminates));
}

class WithoutMemoryDeathTest : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(Carried, WithoutMemoryDeathTest,
                         testing::ValuesIn(TestSupport::carriedTypes()), TestSupport::nameOfTest);

TEST_P(WithoutMemoryDeathTest, TranslatingFromTheHostEndsTheProcess) {
    const Rig rig(GetParam().c_str());
    Pelmor::AnyValue value = rig.value();
    ASSERT_TRUE(value.hasValue());
    expectTermination([&] { rig.read(value); });
}

TEST_P(WithoutMemoryDeathTest, TranslatingToAnEmptyHostEndsTheProcess) {
    const Rig rig(GetParam().c_str());
    const Pelmor::AnyValue value = rig.value();
    const Endings endings = endingsWithoutMemory([&] { rig.write(value); });
    EXPECT_EQ(endings, times(endings.size(), Ending::kTerminates));
    // A transform has nothing whose length the host does not know.
    EXPECT_EQ(endings.empty(), GetParam().c_str() == std::string("Core::Transform::Transform"));
}

TEST_P(WithoutMemoryDeathTest, AddingAPortEndsTheProcess) {
    const Rig rig(GetParam().c_str());
    VDGModifier modifier;
    TavrikGraph::Executor::NodeEditContext context{nullptr, VFnDependencyNode().create("rig"),
                                                   nullptr, &modifier};
    const Pelmor::String name("a port with a name of more than fifteen characters");
    expectTermination(
        [&] { rig.translation->portAdded(name, PortDirection::Input, rig.type, 0, 0, &context); });
}

TEST(NamesWithoutMemoryDeathTest, EndTheProcess) {
    const Translation translation = newTranslation();
    Pelmor::Array<Pelmor::String> names;
    translation->getSupportedTypeNames(names);
    // The array grows five times on its way to fourteen names.
    EXPECT_EQ(endingsWithoutMemory([&] { translation->getSupportedTypeNames(names); }),
              times(5, Ending::kTerminates));
}

TEST(ShrinkingWithoutMemoryDeathTest, EndsTheProcess) {
    const Rig rig("Rigging::Module::Pins");
    TestSupport::setIndices(rig.outputData().child(VPlug(rig.output.plug).child(1)), {0, 1, 2});
    const Pelmor::AnyValue value = rig.value();
    expectTermination([&] { rig.write(value); });
}

// The message is made, and shown, where no exception may pass either.
class RefusalWithoutMemoryDeathTest : public EditedNode {
protected:
    void expectTerminationOfAdding(const Pelmor::Type& type) {
        const Pelmor::String name("port");
        expectTermination(
            [&] { translation->portAdded(name, PortDirection::Input, type, 0, 0, &context); });
    }
};

TEST_F(RefusalWithoutMemoryDeathTest, OfAnArrayOfArraysEndsTheProcess) {
    const Pelmor::Type type = library.getType("array<array<Rigging::Module::Pins>>");
    ASSERT_FALSE(add("port", type));
    expectTerminationOfAdding(type);
}

TEST_F(RefusalWithoutMemoryDeathTest, OfANameThatIsTakenEndsTheProcess) {
    const Pelmor::Type type = library.getType("Rigging::Module::Pins");
    ASSERT_TRUE(add("port", type));
    expectTerminationOfAdding(type);
}

TEST_F(RefusalWithoutMemoryDeathTest, OfATypeWithoutAnAttributeEndsTheProcess) {
    const Pelmor::Type type = library.getType("double");
    expectTerminationOfAdding(type);
}

TEST_F(RefusalWithoutMemoryDeathTest, OfTheAttributeByTheModifierEndsTheProcess) {
    const Pelmor::Type type = library.getType("Rigging::Module::Pins");
    context.node = VObject::kNullObj;
    expectTerminationOfAdding(type);
    EXPECT_FALSE(add("port", type));
    EXPECT_EQ(errors.messages(), Messages{"Fail to add attribute port on node ."});
}

TEST_F(RefusalWithoutMemoryDeathTest, ToCarryOutTheModifierEndsTheProcess) {
    const Pelmor::Type type = library.getType("Rigging::Module::Pins");
    ASSERT_TRUE(add("taken", type));
    modifier.addAttribute(node,
                          VFnNumericAttribute().create("taken", "taken", VFnNumericData::kDouble));
    expectTerminationOfAdding(type);
    EXPECT_FALSE(add("port", type));
    EXPECT_EQ(errors.messages(),
              Messages{"Fail to modify the DG while adding attribute port on node rig."});
}

TEST(WriterFailureWithoutMemoryDeathTest, EndsTheProcess) {
    const Rig rig("Rigging::Module::Pins");
    TestSupport::setIndices(rig.outputData().child(VPlug(rig.output.plug).child(0)), {0, 5});
    const TestSupport::ShownErrors errors;
    const Pelmor::AnyValue value = rig.value();
    expectTermination([&] { rig.write(value); });
}

}  // namespace
