#include <Pelmor/Library.h>
#include <Tolvane/attributes/UnwrapArrayType.h>

#include <gtest/gtest.h>

namespace {

using Tolvane::unwrapArrayType;

void expectUnwrapped(const char* type, const char* innermost, unsigned arrayLevels) {
    SCOPED_TRACE(type);
    const auto unwrapped = unwrapArrayType(Pelmor::Library().getType(type));
    EXPECT_TRUE(unwrapped.innermost.getFullyQualifiedName() == innermost);
    EXPECT_EQ(unwrapped.arrayLevels, arrayLevels);
}

TEST(UnwrapArrayType, GivesATypeThatIsNoArrayItselfAtLevelZero) {
    for (const char* type : {"bool", "Object", "Core::Transform::Transform"})
        expectUnwrapped(type, type, 0);
    Pelmor::Library library;
    const auto unwrapped = unwrapArrayType(library.defineEnum("Mode", {}));
    EXPECT_EQ(unwrapped.innermost.getTypeKind(), Pelmor::TypeKind::Enum);
    EXPECT_EQ(unwrapped.arrayLevels, 0u);
}

TEST(UnwrapArrayType, CountsEveryLevelOfArrays) {
    expectUnwrapped("array<Rigging::Module::Pins>", "Rigging::Module::Pins", 1);
    expectUnwrapped("array<array<Rigging::Module::Pins>>", "Rigging::Module::Pins", 2);
    expectUnwrapped("array<array<array<array<array<array<int>>>>>>", "int", 6);
}

}  // namespace
