#include "tests/plugin/Translation.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/AllocationFailure.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using TestSupport::AllocationCount;
using TestSupport::AllocationFailure;
using Names = Pelmor::Array<Pelmor::String>;
using Texts = std::vector<std::string>;

const Texts kSupported = {"Core::Transform::Transform",
                          "Rigging::Module::Inputs",
                          "Rigging::Module::InputsControls",
                          "Rigging::Module::InputsJoints",
                          "Rigging::Module::NamedTransforms",
                          "Rigging::Module::Outputs",
                          "Rigging::Module::Pins",
                          "array<Core::Transform::Transform>",
                          "array<Rigging::Module::Inputs>",
                          "array<Rigging::Module::InputsControls>",
                          "array<Rigging::Module::InputsJoints>",
                          "array<Rigging::Module::NamedTransforms>",
                          "array<Rigging::Module::Outputs>",
                          "array<Rigging::Module::Pins>"};

Texts textsOf(const Names& names) {
    Texts texts;
    for (const Pelmor::String& name : names) texts.push_back(name.asChar());
    return texts;
}

class SupportedTypeNames : public testing::Test {
protected:
    // The registry is there once somebody has asked for the names.
    SupportedTypeNames() {
        Names ignored;
        translation->getSupportedTypeNames(ignored);
    }

    Translation translation = newTranslation();
    Names names;
};

TEST_F(SupportedTypeNames, FillAnEmptyArrayToACapacityOfSixteen) {
    ASSERT_EQ(names.data(), nullptr);
    translation->getSupportedTypeNames(names);
    EXPECT_EQ(textsOf(names), kSupported);
    EXPECT_EQ(names.capacity(), 16u);
}

TEST_F(SupportedTypeNames, AreDescribedAsStrings) {
    translation->getSupportedTypeNames(names);
    EXPECT_EQ(names.elementRep().elementSize, 16u);
    EXPECT_EQ(names.elementRep().alignment(), 8u);
    EXPECT_EQ(names.elementRep().kindCode(), 1u);
    EXPECT_EQ(names.elementRep().operations, nullptr);
}

TEST_F(SupportedTypeNames, ReplaceWhatTheArrayHeld) {
    for (int i = 0; i < 20; ++i) names.append("a former name that is too long to be kept in place");
    translation->getSupportedTypeNames(names);
    EXPECT_EQ(textsOf(names), kSupported);
    EXPECT_EQ(names.capacity(), 16u);
    translation->getSupportedTypeNames(names);
    EXPECT_EQ(textsOf(names), kSupported);
}

TEST_F(SupportedTypeNames, TakeFiveBuffersOfWhichTheLastIsKept) {
    const AllocationCount count;
    translation->getSupportedTypeNames(names);
    EXPECT_EQ(count.allocations(), 5u);
    EXPECT_EQ(count.outstanding(), 1);
}

TEST_F(SupportedTypeNames, GiveBackTheFormerBufferAndItsNames) {
    const AllocationCount count;
    names.append("a former name that is too long to be kept in place");
    names.append("another name that is too long to be kept in place");
    const Pelmor::String* former = names.data();
    translation->getSupportedTypeNames(names);
    EXPECT_NE(names.data(), former);
    EXPECT_EQ(count.outstanding(), 1);
}

TEST_F(SupportedTypeNames, AreCopiesThatTheCallerMayChange) {
    translation->getSupportedTypeNames(names);
    for (Pelmor::String& name : names) name = "changed";
    Names again;
    translation->getSupportedTypeNames(again);
    EXPECT_EQ(textsOf(again), kSupported);
}

TEST_F(SupportedTypeNames, AreTheSameFromEveryObject) {
    const Translation other = newTranslation();
    Names otherNames;
    translation->getSupportedTypeNames(names);
    other->getSupportedTypeNames(otherNames);
    EXPECT_EQ(textsOf(names), kSupported);
    EXPECT_EQ(textsOf(otherNames), kSupported);
    EXPECT_NE(names.data(), otherNames.data());
}

using SupportedTypeNamesDeathTest = SupportedTypeNames;

TEST_F(SupportedTypeNamesDeathTest, EndTheProcessWhereTheHeapRunsOut) {
    for (const std::uint64_t nth : {1u, 3u, 5u})
        EXPECT_DEATH(
            {
                const AllocationFailure failure(nth);
                translation->getSupportedTypeNames(names);
            },
            "terminate called");
}

}  // namespace
