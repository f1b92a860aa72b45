#include <Math/double4x4.h>
#include <Pelmor/TypeInfo.h>

#include <cstring>
#include <initializer_list>
#include <typeinfo>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Pelmor::Internal::HeldIdentity;
using Pelmor::Internal::TypeInfo;
using Pelmor::Internal::typeInfoEquals;
using Pelmor::Internal::typeInfoLess;

// Characters that no other name shares an address with, even where the text is the same.
const char kJoint[] = "joint";
const char kJointElsewhere[] = "joint";

TypeInfo identity(const char* name, std::uint32_t depth = 0, std::uint8_t qualifier = 0,
                  std::uint8_t isCanonical = 0) {
    TypeInfo info(name, depth);
    info.qualifier = qualifier;
    info.isCanonical = isCanonical;
    return info;
}

void expectOrdered(const TypeInfo& smaller, const TypeInfo& greater) {
    EXPECT_TRUE(typeInfoLess(smaller, greater));
    EXPECT_FALSE(typeInfoLess(greater, smaller));
}

void expectNeitherLess(const TypeInfo& a, const TypeInfo& b) {
    EXPECT_FALSE(typeInfoLess(a, b));
    EXPECT_FALSE(typeInfoLess(b, a));
}

TEST(TypeInfo, NewRecordCountsTheCharactersOfItsName) {
    const TypeInfo info(kJoint, 2);
    EXPECT_EQ(info.name, kJoint);
    EXPECT_EQ(info.nameLength, 5u);
    EXPECT_EQ(info.isCanonical, 0);
    EXPECT_EQ(info.qualifier, 0);
    EXPECT_EQ(info.arrayDepth, 2u);
}

TEST(TypeInfoEquals, TwoCanonicalRecordsAreEqualOnlyIfTheyAreTheSame) {
    const TypeInfo a = identity(kJoint, 0, 0, 1);
    const TypeInfo b = identity(kJoint, 0, 0, 1);
    EXPECT_TRUE(typeInfoEquals(a, a));
    EXPECT_FALSE(typeInfoEquals(a, b));
}

TEST(TypeInfoEquals, OneCanonicalRecordComparesByContent) {
    const TypeInfo canonical = identity(kJoint, 0, 0, 1);
    const TypeInfo ordinary = identity(kJointElsewhere);
    EXPECT_TRUE(typeInfoEquals(canonical, ordinary));
    EXPECT_TRUE(typeInfoEquals(ordinary, canonical));
}

TEST(TypeInfoEquals, RecordsThatDifferInQualifierDepthOrLengthAreUnequal) {
    EXPECT_FALSE(typeInfoEquals(identity(kJoint, 0, 0), identity(kJoint, 0, 1)));
    EXPECT_FALSE(typeInfoEquals(identity(kJoint, 0), identity(kJoint, 1)));
    EXPECT_FALSE(typeInfoEquals(identity(kJoint), identity("joints")));
    EXPECT_FALSE(typeInfoEquals(identity(kJoint), identity("join")));
}

TEST(TypeInfoEquals, SameNamePointerIsEqualWhateverItsLength) {
    const TypeInfo a = identity(kJoint);
    TypeInfo b = a;
    b.nameLength = 2;
    EXPECT_TRUE(typeInfoEquals(a, b));
}

TEST(TypeInfoEquals, NamesCompareByEveryCharacterOfTheLengthAndNoneBehindIt) {
    ASSERT_NE(&kJoint[0], &kJointElsewhere[0]);
    EXPECT_TRUE(typeInfoEquals(identity(kJoint), identity(kJointElsewhere)));
    EXPECT_FALSE(typeInfoEquals(identity("joint"), identity("joinT")));
    EXPECT_FALSE(typeInfoEquals(identity("joint"), identity("Joint")));

    TypeInfo joint = identity("joint one");
    TypeInfo jointAgain = identity("joint two");
    joint.nameLength = jointAgain.nameLength = 5;
    EXPECT_TRUE(typeInfoEquals(joint, jointAgain));
}

TEST(TypeInfoLess, SmallerDepthComesFirstWhateverElse) {
    expectOrdered(identity("z", 0, 9), identity("a", 1, 0));
    expectOrdered(identity("a", 1), identity("a", 2));
    expectOrdered(identity("a", 1), identity("a", 0x80000000u));
}

TEST(TypeInfoLess, SmallerQualifierComesFirstWithinADepth) {
    expectOrdered(identity("z", 1, 0), identity("a", 1, 1));
    expectOrdered(identity("a", 0, 1), identity("a", 0, 0x80));
}

TEST(TypeInfoLess, SameNamePointerOrSameCharactersAreNotLess) {
    expectNeitherLess(identity(kJoint), identity(kJointElsewhere));
    const TypeInfo a = identity(kJoint);
    TypeInfo b = a;
    b.nameLength = 2;
    expectNeitherLess(a, b);
}

TEST(TypeInfoLess, NamesAreOrderedByTheirFirstDifferenceThenPrefixesFirst) {
    expectOrdered(identity("join"), identity("joint"));
    expectOrdered(identity(""), identity("\x80"));
    expectOrdered(identity("hip"), identity("knee"));
    expectOrdered(identity("hip long"), identity("knee"));
    expectOrdered(identity("Knee"), identity("hip"));
}

TEST(TypeInfoLess, CharactersCompareAsSigned) {
    expectOrdered(identity("\x80"), identity("\xff"));
    expectOrdered(identity("\xff"), identity("\x01"));
    expectOrdered(identity("a\x80"), identity("a~"));
}

TEST(TypeInfoLess, CanonicalFlagPlaysNoPart) {
    expectNeitherLess(identity(kJoint, 0, 0, 1), identity(kJointElsewhere, 0, 0, 0));
    expectNeitherLess(identity(kJoint, 0, 0, 1), identity(kJointElsewhere, 0, 0, 1));
    expectOrdered(identity("a", 0, 0, 1), identity("b", 0, 0, 0));
    expectOrdered(identity("a", 0, 0, 0), identity("b", 0, 0, 1));
}

TEST(TypeInfoLess, LessIsAStrictWeakOrderThatAgreesWithEquality) {
    std::vector<TypeInfo> all;
    for (const char* name : {"", "a", "aa", "b", "\x80", "a\x80", kJoint, kJointElsewhere})
        for (const std::uint32_t depth : {0u, 1u, 2u})
            for (const std::uint8_t qualifier : {std::uint8_t{0}, std::uint8_t{200}})
                all.push_back(identity(name, depth, qualifier));
    const auto equivalent = [](const TypeInfo& a, const TypeInfo& b) {
        return !typeInfoLess(a, b) && !typeInfoLess(b, a);
    };
    for (const TypeInfo& a : all) {
        EXPECT_FALSE(typeInfoLess(a, a));
        for (const TypeInfo& b : all) {
            EXPECT_FALSE(typeInfoLess(a, b) && typeInfoLess(b, a));
            EXPECT_EQ(equivalent(a, b), typeInfoEquals(a, b));
            for (const TypeInfo& c : all) {
                EXPECT_FALSE(typeInfoLess(a, b) && typeInfoLess(b, c) && !typeInfoLess(a, c));
                EXPECT_FALSE(equivalent(a, b) && equivalent(b, c) && !equivalent(a, c));
            }
        }
    }
}

TEST(Identity, NameIsThatOfAPointerToTheType) {
    const TypeInfo& matrix = Pelmor::Internal::Identity<Math::double4x4, 0>::s_record;
    EXPECT_STREQ(matrix.name, typeid(Math::double4x4*).name());
    EXPECT_EQ(matrix.nameLength, std::strlen(typeid(Math::double4x4*).name()));
    EXPECT_EQ(matrix.isCanonical, 0);
    EXPECT_EQ(matrix.qualifier, 0);
    EXPECT_EQ(matrix.arrayDepth, 0u);
}

TEST(Identity, IdentityOfAnArrayDiffersInItsDepthAlone) {
    const TypeInfo& matrix = Pelmor::Internal::Identity<Math::double4x4, 0>::s_record;
    const TypeInfo& matrices = HeldIdentity<Pelmor::SharedArray<Math::double4x4>>::s_record;
    EXPECT_STREQ(matrices.name, matrix.name);
    EXPECT_EQ(matrices.nameLength, matrix.nameLength);
    EXPECT_EQ(matrices.isCanonical, matrix.isCanonical);
    EXPECT_EQ(matrices.qualifier, matrix.qualifier);
    EXPECT_EQ(matrices.arrayDepth, 1u);
    EXPECT_FALSE(typeInfoEquals(matrix, matrices));
}

TEST(Identity, IdentityOfAnArraySortsBehindThatOfEveryValue) {
    for (const TypeInfo* array : {&HeldIdentity<Pelmor::SharedArray<double>>::s_record,
                                  &HeldIdentity<Pelmor::SharedArray<Math::double4x4>>::s_record})
        for (const TypeInfo* other :
             {&HeldIdentity<double>::s_record, &HeldIdentity<Math::double4x4>::s_record,
              &HeldIdentity<Pelmor::String>::s_record, &TypeInfo::s_void})
            expectOrdered(*other, *array);
}

TEST(Identity, IdentityOfAPointerToNoArrayIsThatOfAValue) {
    EXPECT_EQ(HeldIdentity<Pelmor::Ptr<double>>::s_record.arrayDepth, 0u);
}

}  // namespace
