// What the page of each record says, and how the record lies in memory, against the tree of it.
#include "tests/support/CarriedTypes.h"

#include <Tolvane/record/CheckPage.h>

#include <cstddef>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;

template <typename Record>
class RecordPage : public testing::Test {
protected:
    template <typename Value>
    std::size_t placeOf(const Value& member) const {
        return static_cast<std::size_t>(reinterpret_cast<const char*>(&member) -
                                        reinterpret_cast<const char*>(&record));
    }

    const Record record{};
};
TYPED_TEST_SUITE(RecordPage, RecordTypes, NameOfType);

TYPED_TEST(RecordPage, NamesTheTypeOfTheGraph) {
    EXPECT_STREQ(Tolvane::Page<TypeParam>::typeName, RecordTree<TypeParam>::typeName);
}

TYPED_TEST(RecordPage, ListsAllMembersInOrderButTheObjects) {
    std::vector<std::pair<std::size_t, std::string>> listed, expected;
    const auto addTo = [this](auto& list, const auto& member) {
        list.emplace_back(this->placeOf(member), typeid(member).name());
    };
    std::apply([&](auto... members) { (addTo(listed, this->record.*members), ...); },
               Tolvane::Page<TypeParam>::members);
    eachMember(this->record, [&](const auto& member) { addTo(expected, member); });
    EXPECT_EQ(listed, expected);
}

// The graph knows members by their places alone.
TYPED_TEST(RecordPage, IsOfARecordWhoseMembersLieInOrderWithoutGaps) {
    std::size_t place = 0;
    eachNamedMember(this->record, [&](const char* name, const auto& member) {
        EXPECT_EQ(this->placeOf(member), place) << name;
        place += sizeof member;
    });
    EXPECT_EQ(sizeof(TypeParam), place);
}

// A list of records asks both of their pages while it is compiled.
TEST(PageChecks, TakeIdentifiersJoinedByDoubleColonsForANameOfTheGraph) {
    for (const char* name : {"A", "_a1::B_2", "Studio::Face::Face"})
        EXPECT_TRUE(Tolvane::isGraphName(name)) << name;
    for (const char* name : {"", "::A", "A::", "A:B", "A::::B", "1A", "A::1", "A B", "a{", "A>"})
        EXPECT_FALSE(Tolvane::isGraphName(name)) << name;
}

TEST(PageChecks, TellAnotherNameFromThatOfTheStruct) {
    using Pins = Rigging::Module::Pins;
    EXPECT_TRUE(Tolvane::isNameInCpp<Pins>("Rigging::Module::Pins"));
    for (const char* name : {"", "Pins", "Module::Pins", "Rigging::Module::Pin",
                             "Rigging::Module::Pins2", "Rigging::Module::Inputs"})
        EXPECT_FALSE(Tolvane::isNameInCpp<Pins>(name)) << name;

    for (const char* function :
         {"bool f(T) [with Struct = A::B; T = int]", "bool f() [Struct = A::B]"}) {
        EXPECT_TRUE(Tolvane::isForStruct(function, "A::B")) << function;
        EXPECT_FALSE(Tolvane::isForStruct(function, "A")) << function;
        EXPECT_FALSE(Tolvane::isForStruct(function, "A::C")) << function;
    }
}

TEST(PageChecks, FindAMemberThatIsListedTwice) {
    using Controls = Rigging::Module::InputsControls;
    EXPECT_TRUE(Tolvane::areDistinct(
        std::tuple{&Controls::names, &Controls::matrices, &Controls::weights}));
    EXPECT_FALSE(
        Tolvane::areDistinct(std::tuple{&Controls::names, &Controls::matrices, &Controls::names}));
}

}  // namespace
