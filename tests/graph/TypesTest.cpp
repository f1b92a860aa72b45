// Types as they are read: kinds, views, members, enumerations.
#include <Pelmor/Library.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Pelmor::ArrayType;
using Pelmor::EnumType;
using Pelmor::Library;
using Pelmor::StructType;
using Pelmor::Type;
using Pelmor::TypeKind;

using Members = std::vector<std::pair<std::string, std::string>>;

int kindOf(const Type& type) { return static_cast<int>(type.getTypeKind()); }

std::string nameOf(const Type& type) { return type.getFullyQualifiedName().c_str(); }

// Name and type, by the walk that every reader of a struct makes.
Members membersOf(const StructType& type) {
    Members members;
    auto current = type.begin();
    const auto end = type.end();
    for (; current != end; ++current)
        members.emplace_back((*current).getName().c_str(), nameOf((*current).getType()));
    return members;
}

TEST(TypeKind, KindIsFourteenForArraysFifteenForStructsSixteenForEnums) {
    Library library;
    EXPECT_EQ(kindOf(library.getType("array<int>")), 14);
    EXPECT_EQ(kindOf(library.getType("array<array<Rigging::Module::Pins>>")), 14);
    EXPECT_EQ(kindOf(library.getType("Rigging::Module::Pins")), 15);
    EXPECT_EQ(kindOf(library.defineEnum("Rigging::Side", {{"left", 0}})), 16);
}

TEST(TypeKind, EachBuiltInTypeHasAKindOfItsOwn) {
    const Library library;
    std::set<int> kinds = {14, 15, 16};
    for (const char* name :
         {"bool", "int", "double", "float", "string", "Math::double4x4", "Object"})
        EXPECT_TRUE(kinds.insert(kindOf(library.getType(name))).second) << name;
}

TEST(Type, CopiesDescribeTheSameType) {
    Library library;
    const Type pins = StructType(library.getType("Rigging::Module::Pins"));
    Type copy(pins);
    EXPECT_EQ(nameOf(copy), "Rigging::Module::Pins");
    EXPECT_EQ(kindOf(copy), 15);
    EXPECT_EQ(membersOf(StructType(copy)), membersOf(StructType(pins)));
    copy = library.getType("double");
    EXPECT_EQ(nameOf(copy), "double");
    EXPECT_EQ(nameOf(pins), "Rigging::Module::Pins");
    const Type& same = copy;
    copy = same;
    EXPECT_EQ(nameOf(copy), "double");
}

TEST(Type, TypeOutlivesItsLibrary) {
    std::optional<Library> library(std::in_place);
    const StructType pins(library->getType("Rigging::Module::Pins"));
    const ArrayType arrays(library->getType("array<array<Rigging::Module::Pins>>"));
    const EnumType side = library->defineEnum("Side", {{"left", 0}, {"right", 1}});
    library.reset();
    EXPECT_EQ(membersOf(pins),
              (Members{{"names", "array<string>"}, {"matrices", "array<Math::double4x4>"}}));
    EXPECT_EQ(membersOf(StructType(ArrayType(arrays.getElementType()).getElementType())),
              membersOf(pins));
    EXPECT_TRUE((*side.begin()).getName() == "left");
}

TEST(ArrayType, ElementTypeIsGivenLevelByLevel) {
    const Library library;
    const ArrayType outer(library.getType("array<array<Rigging::Module::Inputs>>"));
    const Type inner = outer.getElementType();
    EXPECT_EQ(nameOf(inner), "array<Rigging::Module::Inputs>");
    ASSERT_EQ(kindOf(inner), 14);
    const Type element = ArrayType(inner).getElementType();
    EXPECT_EQ(nameOf(element), "Rigging::Module::Inputs");
    EXPECT_EQ(kindOf(element), 15);
}

TEST(TypeViews, ViewsRefuseTypesOfOtherKinds) {
    Library library;
    const Type array = library.getType("array<double>");
    const Type record = library.getType("Rigging::Module::Pins");
    const Type side = library.defineEnum("Side", {});
    const Type number = library.getType("double");
    for (const Type& type : {record, side, number})
        EXPECT_THROW(ArrayType{type}, std::invalid_argument) << nameOf(type);
    for (const Type& type : {array, side, number})
        EXPECT_THROW(StructType{type}, std::invalid_argument) << nameOf(type);
    for (const Type& type : {array, record, number})
        EXPECT_THROW(EnumType{type}, std::invalid_argument) << nameOf(type);
}

TEST(StructType, MembersAreWalkedInDeclarationOrder) {
    Library library;
    const StructType type =
        library.defineStruct("Zoo", {{"zebra", library.getType("float")},
                                     {"ape", library.getType("array<bool>")},
                                     {"moose", library.getType("Core::Transform::Transform")}});
    EXPECT_EQ(membersOf(type), (Members{{"zebra", "float"},
                                        {"ape", "array<bool>"},
                                        {"moose", "Core::Transform::Transform"}}));
}

TEST(StructType, WalkOfNoMembersOrEnumerationsVisitsNothing) {
    Library library;
    const StructType type = library.defineStruct("Nothing", {});
    EXPECT_FALSE(type.begin() != type.end());
    EXPECT_TRUE(type.begin() == type.end());
    const EnumType enumType = library.defineEnum("NoField", {});
    EXPECT_FALSE(enumType.begin() != enumType.end());
}

TEST(StructType, MembersAreNotConst) {
    const Library library;
    const StructType type(library.getType("Rigging::Module::Pins"));
    auto member = type.begin();
    static_assert(std::is_same_v<decltype(*member), StructType::Member&>);
    static_assert(std::is_same_v<decltype((*member).getType()), const Type&>);
    static_assert(std::is_same_v<decltype((*member).getName()), Pelmor::String>);
    const Type& memberType = (*member).getType();
    ++member;
    EXPECT_EQ(nameOf(memberType), "array<string>") << "good as long as the struct type";
}

TEST(StructType, MemberIteratorsGoForwardAndBack) {
    const Library library;
    const StructType type(library.getType("Rigging::Module::Inputs"));
    auto member = type.begin();
    ++member;
    EXPECT_TRUE(member->getName() == "joints");
    EXPECT_TRUE((*++member).getName() == "controls0");
    EXPECT_TRUE((*--member).getName() == "joints");
    --member;
    EXPECT_TRUE(member == type.begin());
    auto last = type.end();
    --last;
    EXPECT_TRUE(last->getName() == "object1");
}

// Dereferencing is no const operation of the graph library, so nobody may rely on one.
template <typename T, typename = void>
constexpr bool kDereferencesConst = false;
template <typename T>
constexpr bool kDereferencesConst<T, std::void_t<decltype(*std::declval<const T&>())>> = true;
static_assert(!kDereferencesConst<StructType::MemberIterator>);

TEST(StructType, MemberIteratorsServeTheStandardAlgorithms) {
    using Traits = std::iterator_traits<StructType::MemberIterator>;
    static_assert(std::is_same_v<Traits::iterator_category, std::bidirectional_iterator_tag>);
    static_assert(std::is_same_v<Traits::value_type, StructType::Member>);
    const Library library;
    const StructType type(library.getType("Rigging::Module::Inputs"));
    const auto found = std::find_if(type.begin(), type.end(), [](const StructType::Member& member) {
        return member.getName() == "controls0";
    });
    EXPECT_EQ(std::distance(type.begin(), found), 2);
    EXPECT_TRUE((*std::make_reverse_iterator(type.end())).getName() == "object1");
    StructType::MemberIterator member;
    member = type.begin();
    EXPECT_TRUE(member++ == type.begin() && member == std::next(type.begin()));
    EXPECT_TRUE(member-- == std::next(type.begin()) && member == type.begin());
}

TEST(EnumType, EnumerationsAreWalkedInDeclarationOrder) {
    Library library;
    const EnumType type =
        library.defineEnum("Order", {{"zyx", 5}, {"xyz", -1}, {"none", 2147483647}});
    std::vector<std::pair<std::string, std::int32_t>> seen;
    const auto end = type.end();
    for (auto current = type.begin(); current != end; ++current)
        seen.emplace_back((*current).getName().c_str(), (*current).getValue());
    EXPECT_EQ(seen, (std::vector<std::pair<std::string, std::int32_t>>{
                        {"zyx", 5}, {"xyz", -1}, {"none", 2147483647}}));
}

TEST(EnumType, EnumerationsAreConst) {
    Library library;
    const EnumType type = library.defineEnum("Side", {{"left", 0}, {"right", 1}});
    auto enumeration = type.begin();
    static_assert(std::is_same_v<decltype(*enumeration), const EnumType::Enumeration&>);
    static_assert(std::is_same_v<decltype((*enumeration).getName()), const Pelmor::String&>);
    ++enumeration;
    EXPECT_TRUE(enumeration->getName() == "right");
    --enumeration;
    EXPECT_TRUE(enumeration->getName() == "left");
    using Traits = std::iterator_traits<EnumType::EnumerationIterator>;
    static_assert(std::is_same_v<Traits::value_type, EnumType::Enumeration>);
    static_assert(std::is_same_v<Traits::reference, const EnumType::Enumeration&>);
}

}  // namespace
