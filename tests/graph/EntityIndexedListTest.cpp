#include <Pelmor/EntityIndexedList.h>
#include <Pelmor/Library.h>

#include <gtest/gtest.h>

namespace {

using TypeList = Pelmor::EntityIndexedList<Pelmor::Type>;

TEST(EntityIndexedList, ListKeepsTheOrderInWhichEntitiesAreAdded) {
    const Pelmor::Library library;
    TypeList list;
    EXPECT_TRUE(list.add(library.getType("string")));
    EXPECT_TRUE(list.add(library.getType("array<double>")));
    EXPECT_TRUE(list.add(library.getType("bool")));
    ASSERT_EQ(list.size(), 3u);
    EXPECT_TRUE(list[0].getFullyQualifiedName() == "string");
    EXPECT_TRUE(list[1].getFullyQualifiedName() == "array<double>");
    EXPECT_TRUE(list[2].getFullyQualifiedName() == "bool");
}

TEST(EntityIndexedList, ListHasEachNameOnce) {
    const Pelmor::Library library, otherLibrary;
    TypeList list;
    EXPECT_TRUE(list.add(library.getType("double")));
    EXPECT_FALSE(list.add(library.getType("double")));
    EXPECT_FALSE(list.add(otherLibrary.getType("double")));
    EXPECT_EQ(list.size(), 1u);
}

TEST(EntityIndexedList, ListFindsByTheWholeName) {
    const Pelmor::Library library;
    TypeList list;
    EXPECT_EQ(list.size(), 0u);
    EXPECT_EQ(list.find("double"), nullptr);
    list.add(library.getType("double"));
    list.add(library.getType("Math::double4x4"));
    EXPECT_EQ(list.find("Math::double4x4"), &list[1]);
    EXPECT_EQ(list.find("double4x4"), nullptr);
    EXPECT_EQ(list.find("Double"), nullptr);
    EXPECT_EQ(list.find(""), nullptr);
}

}  // namespace
