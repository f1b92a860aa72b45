// Loading the built plugin, leaving it, and loading it again.
#include "tests/end_to_end/RigNode.h"
#include "tests/support/AllocationCount.h"

#include <Pelmor/DefaultClass.h>
#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <cstdint>
#include <memory>

#include <dlfcn.h>
#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using TavrikGraph::Executor::TranslationLibrary;

bool isLoaded() {
    void* library = dlopen(TOLVANE_PLUGIN, RTLD_NOW | RTLD_NOLOAD);
    if (library) dlclose(library);
    return library != nullptr;
}

void carrySomething(TypeTranslation& translation, unsigned first) {
    RigNode node(translation, "rig");
    ASSERT_TRUE(node.addPorts("array<Rigging::Module::Outputs>"));
    node.fill("in", Numbers(first));
    EXPECT_TRUE(node.evaluate());
    EXPECT_EQ(node.leaves("out"), node.leaves("in"));
}

TEST(LibraryLife, LoadsReleasesUnloadsAndLoadsAgain) {
    for (const unsigned first : {1u, 500u, 1000u}) {
        ASSERT_FALSE(isLoaded());
        const TranslationLibrary library(TOLVANE_PLUGIN);
        EXPECT_TRUE(isLoaded());
        carrySomething(library.translation(), first);
    }
    EXPECT_FALSE(isLoaded());
}

TEST(LibraryLife, GivesEachLoaderAnObjectOfItsOwn) {
    auto first = std::make_unique<TranslationLibrary>(TOLVANE_PLUGIN);
    const TranslationLibrary second(TOLVANE_PLUGIN);
    EXPECT_NE(&first->translation(), &second.translation());
    carrySomething(first->translation(), 1);
    carrySomething(second.translation(), 500);
    first.reset();
    EXPECT_TRUE(isLoaded());
    carrySomething(second.translation(), 1000);
}

TEST(LibraryLife, LeavesNoValueBehind) {
    const auto& defaultObject = Pelmor::Internal::getDefaultClass<Tavrik::Object>();
    const std::uint64_t usesBefore = defaultObject.useCount();
    {
        const TranslationLibrary library(TOLVANE_PLUGIN);
        {
            RigNode node(library.translation(), "rig");
            ASSERT_TRUE(node.addPorts("Rigging::Module::Inputs"));
            ASSERT_TRUE(node.evaluate());
            // Two objects in the value that came in and two in its copy that went out.
            EXPECT_EQ(defaultObject.useCount(), usesBefore + 4);
        }
        EXPECT_EQ(defaultObject.useCount(), usesBefore);
    }
    EXPECT_FALSE(isLoaded());
    EXPECT_EQ(defaultObject.useCount(), usesBefore);
}

// The registry included, which outlives every translation object.
TEST(LibraryLife, GivesBackAllMemoryWhenItIsUnloaded) {
    const auto use = [&] {
        const TranslationLibrary library(TOLVANE_PLUGIN);
        Pelmor::Array<Pelmor::String> names;
        library.translation().getSupportedTypeNames(names);
        EXPECT_GT(names.size(), 0u);
    };
    use();
    ASSERT_FALSE(isLoaded());
    const AllocationCount count;
    use();
    ASSERT_FALSE(isLoaded());
    EXPECT_GT(count.allocations(), 0u);
    EXPECT_EQ(count.outstanding(), 0);
}

}  // namespace
