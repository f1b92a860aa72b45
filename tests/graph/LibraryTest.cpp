#include <Pelmor/Library.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Pelmor::EnumType;
using Pelmor::Library;
using Pelmor::StructType;
using Pelmor::Type;

using Members = std::vector<std::pair<std::string, std::string>>;

Members membersOf(const char* structName) {
    const Library library;
    const StructType type(library.getType(structName));
    Members members;
    for (auto member = type.begin(); member != type.end(); ++member)
        members.emplace_back(member->getName().c_str(),
                             member->getType().getFullyQualifiedName().c_str());
    return members;
}

TEST(Library, BuiltInTypesAreKnownByTheirExactNames) {
    const Library library;
    for (const char* name :
         {"bool", "int", "double", "float", "string", "Math::double4x4", "Object"}) {
        const auto type = library.findType(name);
        ASSERT_TRUE(type) << name;
        EXPECT_TRUE(type->getFullyQualifiedName() == name);
    }
    for (const char* name : {"", "Bool", "String", "double4x4", "object", "int ", " int", "void"})
        EXPECT_FALSE(library.findType(name)) << name;
}

TEST(Library, RecordsHaveTheirMembersInOrder) {
    Members matrices;
    for (const char* digit : {"0", "1", "2", "3", "4", "5", "6", "7"})
        matrices.emplace_back(std::string("matrix") + digit, "Math::double4x4");
    EXPECT_EQ(membersOf("Core::Transform::Transform"), matrices);
    EXPECT_EQ(
        membersOf("Rigging::Module::NamedTransforms"),
        (Members{{"names", "array<string>"}, {"transforms", "array<Core::Transform::Transform>"}}));
    EXPECT_EQ(membersOf("Rigging::Module::Pins"),
              (Members{{"names", "array<string>"}, {"matrices", "array<Math::double4x4>"}}));
    EXPECT_EQ(membersOf("Rigging::Module::InputsJoints"),
              (Members{{"names", "array<string>"},
                       {"matrices", "array<Math::double4x4>"},
                       {"namedTransforms", "Rigging::Module::NamedTransforms"}}));
    EXPECT_EQ(membersOf("Rigging::Module::InputsControls"),
              (Members{{"names", "array<string>"},
                       {"matrices", "array<Math::double4x4>"},
                       {"weights", "array<double>"},
                       {"namedTransforms", "Rigging::Module::NamedTransforms"}}));
    EXPECT_EQ(membersOf("Rigging::Module::Inputs"),
              (Members{{"pins", "Rigging::Module::Pins"},
                       {"joints", "Rigging::Module::InputsJoints"},
                       {"controls0", "Rigging::Module::InputsControls"},
                       {"controls1", "Rigging::Module::InputsControls"},
                       {"object0", "Object"},
                       {"object1", "Object"}}));
    EXPECT_EQ(membersOf("Rigging::Module::Outputs"),
              (Members{{"name", "string"},
                       {"pins", "Rigging::Module::Pins"},
                       {"namedTransforms0", "Rigging::Module::NamedTransforms"},
                       {"namedTransforms1", "Rigging::Module::NamedTransforms"},
                       {"namedTransforms2", "Rigging::Module::NamedTransforms"},
                       {"object0", "Object"},
                       {"object1", "Object"}}));
}

TEST(Library, ArraysOfKnownTypesAreFoundAtAnyDepth) {
    const Library library;
    std::string name = "Rigging::Module::Pins";
    for (int depth = 1; depth <= 5; ++depth) {
        name = "array<" + name + ">";
        const auto type = library.findType(name.c_str());
        ASSERT_TRUE(type) << name;
        EXPECT_TRUE(type->getFullyQualifiedName() == name.c_str());
    }
}

TEST(Library, ArrayNamesOfAnotherFormAreNotFound) {
    const Library library;
    for (const char* name : {"array<>", "array<", "array", "array<double", "array<double>>",
                             "array<Nothing>", "array< double>", "array <double>", "Array<double>",
                             "array<array<double>", "<double>", "array<double> "})
        EXPECT_FALSE(library.findType(name)) << name;
}

TEST(Library, GetTypeThrowsIfThereIsNone) {
    const Library library;
    EXPECT_THROW(library.getType("Nothing"), std::out_of_range);
    EXPECT_THROW(library.getType("array<Nothing>"), std::out_of_range);
}

TEST(Library, ArrayOfMakesTheTypeThatIsFoundByName) {
    const Library library;
    const auto array = Library::arrayOf(library.getType("Rigging::Module::Pins"));
    EXPECT_TRUE(array.getFullyQualifiedName() == "array<Rigging::Module::Pins>");
    EXPECT_TRUE(array.getElementType().getFullyQualifiedName() == "Rigging::Module::Pins");
    EXPECT_TRUE(Library::arrayOf(array).getFullyQualifiedName() ==
                "array<array<Rigging::Module::Pins>>");
}

TEST(Library, DefinedTypesAndArraysOfThemAreFound) {
    Library library;
    library.defineStruct("Rigging::Limb", {{"length", library.getType("double")}});
    library.defineEnum("Rigging::Side", {{"left", 0}});
    for (const char* name :
         {"Rigging::Limb", "Rigging::Side", "array<Rigging::Limb>", "array<array<Rigging::Side>>"})
        EXPECT_TRUE(library.findType(name)) << name;
}

TEST(Library, DefinitionsStayInTheirLibrary) {
    Library library;
    const Library other;
    library.defineStruct("Rigging::Limb", {});
    EXPECT_FALSE(other.findType("Rigging::Limb"));
}

TEST(Library, TakenNamesAreRefusedAndKeepTheirType) {
    Library library;
    library.defineStruct("Limb", {{"length", library.getType("double")}});
    library.defineEnum("Side", {{"left", 0}});
    for (const char* taken :
         {"Limb", "Side", "double", "Rigging::Module::Pins", "array<double>", "array<Limb>"}) {
        EXPECT_THROW(library.defineStruct(taken, {}), std::invalid_argument) << taken;
        EXPECT_THROW(library.defineEnum(taken, {}), std::invalid_argument) << taken;
    }
    const StructType limb(library.getType("Limb"));
    EXPECT_TRUE(limb.begin() != limb.end());
    const EnumType side(library.getType("Side"));
    EXPECT_TRUE(side.begin() != side.end());
    EXPECT_EQ(library.getType("double").getTypeKind(), Pelmor::TypeKind::Double);
}

TEST(Library, EmptyNamesAreRefused) {
    Library library;
    EXPECT_THROW(library.defineStruct("", {}), std::invalid_argument);
    EXPECT_THROW(library.defineEnum("", {}), std::invalid_argument);
    EXPECT_FALSE(library.findType(""));
}

TEST(Library, RepeatedMembersAndEnumerationsAreRefusedAndDefineNothing) {
    Library library;
    const Type number = library.getType("double");
    const Type text = library.getType("string");
    EXPECT_THROW(library.defineStruct("Limb", {{"a", number}, {"b", number}, {"a", text}}),
                 std::invalid_argument);
    EXPECT_THROW(library.defineEnum("Side", {{"left", 0}, {"left", 1}}), std::invalid_argument);
    EXPECT_FALSE(library.findType("Limb"));
    EXPECT_FALSE(library.findType("Side"));
    EXPECT_NO_THROW(library.defineStruct("Limb", {{"a", number}, {"A", number}}));
    EXPECT_NO_THROW(library.defineEnum("Side", {{"left", 0}, {"right", 0}}))
        << "values may be shared, names may not";
}

}  // namespace
