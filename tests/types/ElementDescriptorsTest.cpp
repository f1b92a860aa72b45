#include "plugin/Records.h"

#include <set>

#include <gtest/gtest.h>

namespace {

using namespace Rigging::Module;
using Pelmor::Internal::ElementOperations;
using Pelmor::Internal::UntypedTypeRep;

template <typename Element>
UntypedTypeRep describedBy() {
    return Pelmor::Array<Element>().elementRep();
}

void expectPlain(const UntypedTypeRep& rep, std::uint32_t size, std::uint32_t kindCode) {
    EXPECT_EQ(rep.elementSize, size);
    EXPECT_EQ(rep.alignmentAndKind, kindCode << 16 | 8u);
    EXPECT_EQ(rep.operations, nullptr);
}

void expectRecord(const UntypedTypeRep& rep, std::uint32_t size) {
    EXPECT_EQ(rep.elementSize, size);
    EXPECT_EQ(rep.alignmentAndKind, 8u << 16 | 8u);
    EXPECT_NE(rep.operations, nullptr);
}

TEST(ElementDescriptors, OfNumbersAndMatricesHaveKindZeroAndNoOperations) {
    expectPlain(describedBy<double>(), 8, 0);
    expectPlain(describedBy<Math::double4x4>(), 128, 0);
}

TEST(ElementDescriptors, OfStringsHaveKindOneAndNoOperations) {
    expectPlain(describedBy<Pelmor::String>(), 16, 1);
}

TEST(ElementDescriptors, OfRecordsHaveKindEight) {
    expectRecord(describedBy<Transform>(), 1024);
    expectRecord(describedBy<NamedTransforms>(), 32);
    expectRecord(describedBy<Pins>(), 32);
    expectRecord(describedBy<InputsJoints>(), 64);
    expectRecord(describedBy<InputsControls>(), 80);
    expectRecord(describedBy<Inputs>(), 288);
    expectRecord(describedBy<Outputs>(), 176);
}

TEST(ElementDescriptors, OfRecordsEachHaveAnEntryOfTheirOwn) {
    const std::set<ElementOperations> entries = {
        describedBy<Transform>().operations,      describedBy<NamedTransforms>().operations,
        describedBy<Pins>().operations,           describedBy<InputsJoints>().operations,
        describedBy<InputsControls>().operations, describedBy<Inputs>().operations,
        describedBy<Outputs>().operations};
    EXPECT_EQ(entries.size(), 7u);
}

TEST(ElementDescriptors, AreWhatTheArraysOfANewRecordCarry) {
    const InputsControls record;
    expectPlain(record.names->elementRep(), 16, 1);
    expectPlain(record.matrices->elementRep(), 128, 0);
    expectPlain(record.weights->elementRep(), 8, 0);
    expectPlain(record.namedTransforms.names->elementRep(), 16, 1);
    expectRecord(record.namedTransforms.transforms->elementRep(), 1024);
}

}  // namespace
