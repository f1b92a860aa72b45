#include "tests/executor/NumberTranslation.h"

#include <Pelmor/Library.h>
#include <TavrikGraph/Executor/TypeTranslation.h>

#include <gtest/gtest.h>

namespace {

using ExecutorTests::NumberTranslation;
using Pelmor::Array;
using Pelmor::String;

// Also names a type that no library knows.
class ManyNames : public NumberTranslation {
public:
    void getSupportedTypeNames(Array<String>& names) const noexcept override {
        Array<String> all;
        for (const char* name : {"string", "No::Such::Type", "array<Rigging::Module::Pins>"})
            all.append(name);
        names.swap(all);
    }
};

TEST(TypeTranslation, TranslationKeepsItsName) {
    EXPECT_TRUE(NumberTranslation().name() == "Numbers");
}

TEST(TypeTranslation, DefaultSupportedTypesAreThoseNamedThatTheLibraryKnows) {
    const Pelmor::Library library;
    Pelmor::EntityIndexedList<Pelmor::Type> types;
    ManyNames().getSupportedTypes(library, types);
    ASSERT_EQ(types.size(), 2u);
    EXPECT_TRUE(types[0].getFullyQualifiedName() == "string");
    EXPECT_TRUE(types[1].getFullyQualifiedName() == "array<Rigging::Module::Pins>");
}

TEST(TypeTranslation, DefaultSupportedTypesAreAddedToThoseThatAreThere) {
    const Pelmor::Library library;
    Pelmor::EntityIndexedList<Pelmor::Type> types;
    types.add(library.getType("Object"));
    types.add(library.getType("string"));
    ManyNames().getSupportedTypes(library, types);
    ASSERT_EQ(types.size(), 3u);
    EXPECT_TRUE(types[0].getFullyQualifiedName() == "Object");
    EXPECT_TRUE(types[1].getFullyQualifiedName() == "string");
    EXPECT_TRUE(types[2].getFullyQualifiedName() == "array<Rigging::Module::Pins>");
}

TEST(TypeTranslation, DefaultPortRemovalAndRenamingSucceed) {
    const NumberTranslation translation;
    EXPECT_TRUE(translation.portRemoved("walk", "pins"));
    EXPECT_TRUE(translation.portRenamed("walk", "pins", "joints"));
}

TEST(TypeTranslation, DefaultRegistrationSucceeds) {
    const NumberTranslation translation;
    EXPECT_TRUE(translation.registerHostPlugins(nullptr));
    EXPECT_TRUE(translation.unregisterHostPlugins(nullptr));
}

}  // namespace
