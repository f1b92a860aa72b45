#include "plugin/VornikRiggingTranslation.h"
#include "tests/plugin/HostPort.h"
#include "tests/plugin/Translation.h"
#include "tests/support/AllocationCount.h"

#include <Pelmor/Library.h>

#include <cstring>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using Rigging::Module::VornikRiggingTranslation;
using TavrikGraph::Executor::PortDirection;
using TavrikGraph::Executor::TypeTranslation;
using TestSupport::AllocationCount;

static_assert(std::is_base_of_v<TypeTranslation, VornikRiggingTranslation>);
static_assert(sizeof(VornikRiggingTranslation) == sizeof(TypeTranslation),
              "it has no state of its own");

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

TEST(Factory, MakesANewObjectEachTime) {
    const Translation one = newTranslation(), other = newTranslation();
    EXPECT_NE(one, nullptr);
    EXPECT_NE(other, nullptr);
    EXPECT_NE(one, other);
    EXPECT_NE(dynamic_cast<VornikRiggingTranslation*>(one.get()), nullptr);
}

TEST(Factory, NamesTheObject) {
    EXPECT_TRUE(newTranslation()->name() == "Rigging Translation Table");
}

TEST(Release, FreesAllThatTheFactoryTook) {
    const AllocationCount count;
    TypeTranslation* translation = createTavrikTypeTranslation();
    EXPECT_GE(count.outstanding(), 1);
    translation->release();
    EXPECT_EQ(count.outstanding(), 0);
}

TEST(Release, FreesOneObjectAndLeavesTheOthers) {
    const Translation other = newTranslation();
    newTranslation().reset();
    EXPECT_TRUE(other->name() == "Rigging Translation Table");
    Pelmor::Array<Pelmor::String> names;
    other->getSupportedTypeNames(names);
    EXPECT_EQ(names.size(), 14u);
}

TEST(Release, GoesThroughTheObjectsOwnDestructor) {
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

TEST(Release, DoesNothingOnANullObject) {
    const Translation table = newTranslation();
    const AllocationCount count;
    callSlot<void>(*table, kRelease, nullptr);
    EXPECT_EQ(count.deallocations(), 0u);
    EXPECT_TRUE(table->name() == "Rigging Translation Table");
}

// Overrides nothing but what it must.
class PlainTranslation : public TypeTranslation {
public:
    PlainTranslation() : TypeTranslation("plain") {}

    void release() noexcept override {}
    void getSupportedTypeNames(Pelmor::Array<Pelmor::String>&) const noexcept override {}
    bool translateFromHost(const Pelmor::Type&, Pelmor::AnyValue&,
                           const TavrikGraph::Executor::HostContext&) const noexcept override {
        return false;
    }
    bool translateToHost(const Pelmor::AnyValue&,
                         const TavrikGraph::Executor::HostContext&) const noexcept override {
        return false;
    }
    bool portAdded(const Pelmor::String&, PortDirection, const Pelmor::Type&, std::uint32_t,
                   std::uint32_t, TavrikGraph::Executor::NodeEditContext*) const noexcept override {
        return false;
    }
};

TEST(Slots, OfTheOperationsThatItDoesNotOverrideAreTheFrameworks) {
    const Translation translation = newTranslation();
    const PlainTranslation plain;
    for (const unsigned slot : {3u, 8u, 9u, 10u, 11u})
        EXPECT_EQ(slotOf(*translation, slot), slotOf(plain, slot)) << slot;
    for (const unsigned slot : {2u, 4u, 5u, 6u, 7u})
        EXPECT_NE(slotOf(*translation, slot), slotOf(plain, slot)) << slot;
}

TEST(Slots, BeginWithTheDestructorThatFreesAndRelease) {
    const Translation table = newTranslation();
    for (const unsigned slot : {kFreeingDestructor, kRelease}) {
        const AllocationCount count;
        callSlot<void>(*table, slot, createTavrikTypeTranslation());
        EXPECT_GE(count.allocations(), 1u);
        EXPECT_EQ(count.outstanding(), 0);
    }
}

TEST(Slots, ContinueWithTheNamesTheTranslationsAndTheAddingOfPorts) {
    const Translation translation = newTranslation();
    const Pelmor::Library library;
    const Pelmor::Type type = library.getType("Rigging::Module::Pins");

    Pelmor::Array<Pelmor::String> names;
    callSlot<void>(*translation, 4, translation.get(), &names);
    EXPECT_EQ(names.size(), 14u);

    HostPort host;
    VDGModifier modifier;
    TavrikGraph::Executor::NodeEditContext edit{nullptr, host.node, nullptr, &modifier};
    const Pelmor::String name("pins");
    EXPECT_TRUE(callSlot<bool>(*translation, 7, translation.get(), &name, PortDirection::Input,
                               &type, std::uint32_t{0}, std::uint32_t{0}, &edit));
    host.plug = VFnDependencyNode(host.node).findPlug("pins");
    ASSERT_FALSE(host.plug.isNull());

    Pelmor::AnyValue value;
    EXPECT_TRUE(callSlot<bool>(*translation, 5, translation.get(), &type, &value, &host.context));
    EXPECT_TRUE(value.hasValue());

    host.block.setDirty(host.plug.attribute());
    EXPECT_TRUE(callSlot<bool>(*translation, 6, translation.get(), &value, &host.context));
    EXPECT_TRUE(host.block.isClean(host.plug.attribute()));
}

}  // namespace
