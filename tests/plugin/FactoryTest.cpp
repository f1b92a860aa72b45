#include "plugin/VornikRiggingTranslation.h"
#include "tests/plugin/EditedNode.h"
#include "tests/plugin/Rig.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/CarriedTypes.h"

#include <Pelmor/Library.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using Rigging::Module::VornikRiggingTranslation;
using TavrikGraph::Executor::TypeTranslation;
using TestSupport::AllocationCount;

static_assert(std::is_base_of_v<TypeTranslation, VornikRiggingTranslation>);
static_assert(sizeof(VornikRiggingTranslation) == sizeof(TypeTranslation),
              "it has no state of its own");

// What is not overridden is a member of the base.
#define EXPECT_INHERITED(operation)                                              \
    static_assert(std::is_same_v<decltype(&VornikRiggingTranslation::operation), \
                                 decltype(&TypeTranslation::operation)>)
EXPECT_INHERITED(getSupportedTypes);
EXPECT_INHERITED(portRemoved);
EXPECT_INHERITED(portRenamed);
EXPECT_INHERITED(registerHostPlugins);
EXPECT_INHERITED(unregisterHostPlugins);
#undef EXPECT_INHERITED

// The function in a slot of an object's table. The destructor has two in this ABI, of which the
// second frees the object as well.
const void* slotOf(const TypeTranslation& object, unsigned slot) {
    return (*reinterpret_cast<const void* const* const*>(&object))[slot];
}

template <typename Result, typename... Arguments>
Result callSlot(const TypeTranslation& table, unsigned slot, TypeTranslation* object,
                Arguments... arguments) {
    using Function = Result (*)(TypeTranslation*, Arguments...);
    const void* entry = slotOf(table, slot);
    Function function;
    std::memcpy(&function, &entry, sizeof function);
    return function(object, arguments...);
}

constexpr unsigned kFreeingDestructor = 1;
constexpr unsigned kRelease = 2;

TEST(TranslationFactory, MakesANewObjectEachTime) {
    const Translation one = newTranslation(), other = newTranslation();
    ASSERT_TRUE(one && other && one != other);
    EXPECT_NE(dynamic_cast<VornikRiggingTranslation*>(one.get()), nullptr);
    Pelmor::Array<Pelmor::String> names, otherNames;
    one->getSupportedTypeNames(names);
    other->getSupportedTypeNames(otherNames);
    EXPECT_TRUE(std::equal(names.begin(), names.end(), otherNames.begin(), otherNames.end()));
}

TEST(TranslationFactoryDeathTest, LeavesTheRegistryToTheFirstUse) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            const auto entries = 2 * TestSupport::carriedTypes().size();
            const AllocationCount count;
            const Translation translation = newTranslation();
            const auto made = count.allocations();
            Pelmor::Array<Pelmor::String> names;
            translation->getSupportedTypeNames(names);
            std::_Exit(made < entries && count.allocations() >= made + entries ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST(TranslationFactory, NamesTheObject) {
    EXPECT_TRUE(newTranslation()->name() == "Rigging Translation Table");
}

TEST(TranslationRelease, FreesAllThatTheFactoryTook) {
    const AllocationCount count;
    TypeTranslation* translation = createTavrikTypeTranslation();
    EXPECT_GE(count.outstanding(), 1);
    translation->release();
    EXPECT_EQ(count.outstanding(), 0);
}

TEST(TranslationRelease, GoesThroughTheObjectsOwnDestructor) {
    struct Derived : VornikRiggingTranslation {
        explicit Derived(int& count) : destructions(count) {}
        ~Derived() override { ++destructions; }
        int& destructions;
    };
    int destructions = 0;
    const AllocationCount count;
    TypeTranslation* translation = new Derived(destructions);
    translation->release();
    EXPECT_EQ(destructions, 1);
    EXPECT_EQ(count.outstanding(), 0);
}

TEST(TranslationRelease, DoesNothingOnANullObject) {
    const Translation table = newTranslation();
    const AllocationCount count;
    callSlot<void>(*table, kRelease, nullptr);
    EXPECT_EQ(count.deallocations(), 0u);
    EXPECT_TRUE(table->name() == "Rigging Translation Table");
}

TEST(TranslationSlotsOfTheObject, BeginWithTheDestructorThatFreesAndRelease) {
    const Translation table = newTranslation();
    for (const unsigned slot : {kFreeingDestructor, kRelease}) {
        const AllocationCount count;
        callSlot<void>(*table, slot, createTavrikTypeTranslation());
        EXPECT_GE(count.allocations(), 1u);
        EXPECT_EQ(count.outstanding(), 0);
    }
}

class TranslationSlots : public EditedNode {};

TEST_F(TranslationSlots, ContinueWithNamesAndTranslationsAndTheAddingOfPorts) {
    Pelmor::Array<Pelmor::String> names;
    callSlot<void>(*translation, 4, translation.get(), &names);
    EXPECT_EQ(names.size(), TestSupport::carriedTypes().size());

    const Rig rig("Rigging::Module::Pins");
    Pelmor::AnyValue value;
    EXPECT_TRUE(
        callSlot<bool>(*translation, 5, translation.get(), &rig.type, &value, &rig.input.context));
    EXPECT_TRUE(value.hasValue());
    EXPECT_TRUE(callSlot<bool>(*translation, 6, translation.get(), &value, &rig.output.context));
    EXPECT_TRUE(rig.output.isClean());

    const Pelmor::String name("pins");
    EXPECT_TRUE(callSlot<bool>(*translation, 7, translation.get(), &name, PortDirection::Input,
                               &rig.type, std::uint32_t{0}, std::uint32_t{0}, &context));
    EXPECT_EQ(tree("pins").front(), "pins: compound -wk-u");
}

}  // namespace
