#include "tests/support/AllocationCount.h"
#include "tests/support/CarriedTypes.h"

#include <Tolvane/RecordTranslation.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using TestSupport::AllocationCount;
using TestSupport::carriedTypes;
using GivenNames = Pelmor::Array<Pelmor::String>;

// An array that doubles its capacity as it grows to the number of names.
std::uint64_t buffersOfNames() {
    std::uint64_t buffers = 1;
    for (std::uint64_t capacity = 1; capacity < carriedTypes().size(); capacity *= 2) ++buffers;
    return buffers;
}
std::uint64_t capacityOfNames() { return std::uint64_t{1} << (buffersOfNames() - 1); }

std::vector<std::string> textsOf(const GivenNames& names) {
    std::vector<std::string> texts;
    for (const Pelmor::String& name : names) texts.push_back(name.asChar());
    return texts;
}

class SupportedTypeNames : public testing::Test {
protected:
    // The registry is there once somebody has asked for the names.
    SupportedTypeNames() { give(); }

    void give() { giveInto(names); }
    static void giveInto(GivenNames& array) {
        Tolvane::getSupportedTypeNames(
            &Tolvane::TranslatorRegistry::instance<Rigging::Module::Records>, array);
    }

    GivenNames names;
};

TEST_F(SupportedTypeNames, FillAnEmptyArray) {
    EXPECT_EQ(textsOf(names), carriedTypes());
    EXPECT_EQ(names.capacity(), capacityOfNames());
    EXPECT_EQ(names.elementRep().elementSize, 16u);
    EXPECT_EQ(names.elementRep().alignment(), 8u);
    EXPECT_EQ(names.elementRep().kindCode(), 1u);
    EXPECT_EQ(names.elementRep().operations, nullptr);
}

TEST_F(SupportedTypeNames, ReplaceWhatTheArrayHeld) {
    for (int i = 0; i < 40; ++i) names.append("a former name that is too long to be kept in place");
    giveInto(names);
    EXPECT_EQ(textsOf(names), carriedTypes());
    EXPECT_EQ(names.capacity(), capacityOfNames());
}

TEST_F(SupportedTypeNames, TakeOneBufferForEachCapacityAndKeepTheLast) {
    GivenNames own;
    const std::uint64_t buffers = buffersOfNames();
    const AllocationCount count;
    giveInto(own);
    EXPECT_EQ(count.allocations(), buffers);
    EXPECT_EQ(count.outstanding(), 1);
}

TEST_F(SupportedTypeNames, GiveBackTheFormerBufferAndItsNames) {
    GivenNames own;
    const AllocationCount count;
    own.append("a former name that is too long to be kept in place");
    own.append("another name that is too long to be kept in place");
    const Pelmor::String* former = own.data();
    giveInto(own);
    EXPECT_NE(own.data(), former);
    EXPECT_EQ(count.outstanding(), 1);
}

}  // namespace
