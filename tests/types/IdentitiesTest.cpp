#include "plugin/Records.h"

#include <Pelmor/TypeInfo.h>

#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace Rigging::Module;
using Pelmor::SharedArray;
using Pelmor::Internal::HeldIdentity;
using Pelmor::Internal::TypeInfo;
using Pelmor::Internal::typeInfoEquals;
using Pelmor::Internal::typeInfoLess;

struct Expected {
    const TypeInfo* identity;
    const char* name;  // the decorated name of a pointer to the type
    std::uint32_t arrayDepth;
};

template <typename Record>
void addRecord(std::vector<Expected>& all, const char* name) {
    all.push_back({&HeldIdentity<Record>::s_record, name, 0});
    all.push_back({&HeldIdentity<SharedArray<Record>>::s_record, name, 1});
}

std::vector<Expected> allIdentities() {
    std::vector<Expected> all;
    addRecord<Transform>(all, "PN4Core9Transform9TransformE");
    addRecord<NamedTransforms>(all, "PN7Rigging6Module15NamedTransformsE");
    addRecord<Pins>(all, "PN7Rigging6Module4PinsE");
    addRecord<InputsJoints>(all, "PN7Rigging6Module12InputsJointsE");
    addRecord<InputsControls>(all, "PN7Rigging6Module14InputsControlsE");
    addRecord<Inputs>(all, "PN7Rigging6Module6InputsE");
    addRecord<Outputs>(all, "PN7Rigging6Module7OutputsE");
    all.push_back({&HeldIdentity<Pelmor::String>::s_record, "PN6Pelmor6StringE", 0});
    return all;
}

TEST(Identities, AreFifteenAndNoTwoAreEqual) {
    const std::vector<Expected> all = allIdentities();
    EXPECT_EQ(all.size(), 15u);
    for (const Expected& a : all)
        for (const Expected& b : all) {
            const bool same = &a == &b;
            EXPECT_EQ(typeInfoEquals(*a.identity, *b.identity), same) << a.name << ' ' << b.name;
            EXPECT_EQ(
                typeInfoLess(*a.identity, *b.identity) != typeInfoLess(*b.identity, *a.identity),
                !same)
                << a.name << ' ' << b.name;
        }
}

TEST(Identities, NameAPointerToTheTypeWithItsLength) {
    for (const Expected& expected : allIdentities()) {
        EXPECT_STREQ(expected.identity->name, expected.name);
        EXPECT_EQ(expected.identity->nameLength, std::strlen(expected.name));
        EXPECT_EQ(expected.identity->arrayDepth, expected.arrayDepth);
    }
}

TEST(Identities, AreNeitherCanonicalNorQualified) {
    for (const Expected& expected : allIdentities()) {
        EXPECT_EQ(expected.identity->isCanonical, 0);
        EXPECT_EQ(expected.identity->qualifier, 0);
    }
}

TEST(Identities, OfRecordsComeBeforeThoseOfArrays) {
    for (const Expected& a : allIdentities())
        for (const Expected& b : allIdentities()) {
            if (a.arrayDepth >= b.arrayDepth) continue;
            EXPECT_TRUE(typeInfoLess(*a.identity, *b.identity)) << a.name << ' ' << b.name;
            EXPECT_FALSE(typeInfoLess(*b.identity, *a.identity)) << a.name << ' ' << b.name;
        }
}

TEST(Identities, OfTheSameCharactersElsewhereAreTheSameKey) {
    for (const Expected& expected : allIdentities()) {
        const std::string elsewhere = expected.name;
        const TypeInfo other(elsewhere.c_str(), expected.arrayDepth);
        EXPECT_TRUE(typeInfoEquals(*expected.identity, other));
        EXPECT_FALSE(typeInfoLess(*expected.identity, other));
        EXPECT_FALSE(typeInfoLess(other, *expected.identity));
    }
}

TEST(Identities, DifferFromThatOfAnEmptyHolder) {
    for (const Expected& expected : allIdentities())
        EXPECT_FALSE(typeInfoEquals(*expected.identity, TypeInfo::s_void)) << expected.name;
}

}  // namespace
