#include "tests/support/CarriedTypes.h"

#include <Pelmor/TypeInfo.h>

#include <cstring>
#include <string>
#include <typeinfo>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using Pelmor::SharedArray;
using Pelmor::Internal::HeldIdentity;
using Pelmor::Internal::TypeInfo;
using Pelmor::Internal::typeInfoEquals;
using Pelmor::Internal::typeInfoLess;

template <typename... Types>
std::vector<const TypeInfo*> identitiesOf(testing::Types<Types...>) {
    return {&HeldIdentity<Types>::s_record...};
}

// Those of the records, of the arrays of them, and that of a string.
std::vector<const TypeInfo*> allIdentities() {
    return identitiesOf(Joined<HeldTypes, testing::Types<Pelmor::String>>::Type());
}

template <typename Record>
class RecordIdentities : public testing::Test {
protected:
    const TypeInfo& ofOne = HeldIdentity<Record>::s_record;
    const TypeInfo& ofArray = HeldIdentity<SharedArray<Record>>::s_record;
};
TYPED_TEST_SUITE(RecordIdentities, RecordTypes, NameOfType);

TYPED_TEST(RecordIdentities, NameAPointerToTheRecord) {
    EXPECT_STREQ(this->ofOne.name, typeid(TypeParam*).name());
}

TYPED_TEST(RecordIdentities, DifferInTheirDepthAlone) {
    EXPECT_EQ(this->ofOne.arrayDepth, 0u);
    EXPECT_EQ(this->ofArray.arrayDepth, 1u);
    EXPECT_EQ(this->ofOne.name, this->ofArray.name) << "the same characters";
    EXPECT_EQ(this->ofOne.nameLength, this->ofArray.nameLength);
    EXPECT_TRUE(typeInfoEquals(TypeInfo(this->ofOne.name, 1), this->ofArray));
}

TEST(Identities, StringHasOneWithTheNameOfAPointerToIt) {
    EXPECT_STREQ(HeldIdentity<Pelmor::String>::s_record.name, typeid(Pelmor::String*).name());
    EXPECT_EQ(HeldIdentity<Pelmor::String>::s_record.arrayDepth, 0u);
}

TEST(Identities, AllHaveTheLengthOfTheirNameAndAreNeitherCanonicalNorQualified) {
    for (const TypeInfo* identity : allIdentities()) {
        SCOPED_TRACE(identity->name);
        EXPECT_EQ(identity->nameLength, std::strlen(identity->name));
        EXPECT_EQ(identity->isCanonical, 0);
        EXPECT_EQ(identity->qualifier, 0);
    }
}

TEST(Identities, AllDifferAndThoseOfArraysComeLast) {
    const std::vector<const TypeInfo*> all = allIdentities();
    for (const TypeInfo* a : all) {
        EXPECT_FALSE(typeInfoEquals(*a, TypeInfo::s_void)) << a->name;
        for (const TypeInfo* b : all) {
            SCOPED_TRACE(std::string(a->name) + " and " + b->name);
            const bool areOne = a == b;
            EXPECT_EQ(typeInfoEquals(*a, *b), areOne);
            EXPECT_EQ(typeInfoLess(*a, *b) != typeInfoLess(*b, *a), !areOne);
            if (a->arrayDepth < b->arrayDepth) {
                EXPECT_TRUE(typeInfoLess(*a, *b));
            }
        }
    }
}

TEST(Identities, AllAreFoundByTheSameCharactersElsewhere) {
    for (const TypeInfo* identity : allIdentities()) {
        const std::string elsewhere = identity->name;
        const TypeInfo other(elsewhere.c_str(), identity->arrayDepth);
        EXPECT_TRUE(typeInfoEquals(*identity, other)) << elsewhere;
        EXPECT_FALSE(typeInfoLess(*identity, other)) << elsewhere;
        EXPECT_FALSE(typeInfoLess(other, *identity)) << elsewhere;
    }
}

}  // namespace
