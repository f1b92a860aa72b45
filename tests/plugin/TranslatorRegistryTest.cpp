#include "convert/Write.h"
#include "plugin/Records.h"
#include "translation/TranslatorRegistry.h"

#include <Pelmor/AnyValue.h>

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace Rigging::Module;
using Pelmor::SharedArray;
using Pelmor::Internal::HeldIdentity;
using Pelmor::Internal::TypeInfo;
using Tolvane::HostWriter;
using Tolvane::TranslatorRegistry;
using Tolvane::writeFromAny;

const TranslatorRegistry& registry() {
    return TranslatorRegistry::instance<Rigging::Module::Records>();
}

TEST(TranslatorRegistry, HasFourteenReadersInTheOrderOfTheirNames) {
    std::vector<std::string> names;
    for (const auto& reader : registry().readers()) names.push_back(reader.first.asChar());
    EXPECT_EQ(names,
              (std::vector<std::string>{
                  "Core::Transform::Transform", "Rigging::Module::Inputs",
                  "Rigging::Module::InputsControls", "Rigging::Module::InputsJoints",
                  "Rigging::Module::NamedTransforms", "Rigging::Module::Outputs",
                  "Rigging::Module::Pins", "array<Core::Transform::Transform>",
                  "array<Rigging::Module::Inputs>", "array<Rigging::Module::InputsControls>",
                  "array<Rigging::Module::InputsJoints>", "array<Rigging::Module::NamedTransforms>",
                  "array<Rigging::Module::Outputs>", "array<Rigging::Module::Pins>"}));
}

TEST(TranslatorRegistry, HasFourteenWritersThoseOfRecordsBeforeThoseOfArrays) {
    std::vector<const TypeInfo*> identities;
    for (const auto& writer : registry().writers()) identities.push_back(writer.first);
    ASSERT_EQ(identities.size(), 14u);
    for (std::size_t i = 0; i < 14; ++i) EXPECT_EQ(identities[i]->arrayDepth, i < 7 ? 0u : 1u);
    for (std::size_t i = 1; i < 14; ++i)
        EXPECT_TRUE(typeInfoLess(*identities[i - 1], *identities[i])) << i;
    for (std::size_t i = 0; i < 7; ++i) EXPECT_STREQ(identities[i]->name, identities[i + 7]->name);
}

TEST(TranslatorRegistry, FindsTheReaderOfEachName) {
    const auto find = [](const char* name) { return registry().findReader(name); };
    EXPECT_EQ(find("Core::Transform::Transform"), &readTransformValue);
    EXPECT_EQ(find("Rigging::Module::NamedTransforms"), &readNamedTransformsValue);
    EXPECT_EQ(find("Rigging::Module::Pins"), &readPinsValue);
    EXPECT_EQ(find("Rigging::Module::InputsJoints"), &readInputsJointsValue);
    EXPECT_EQ(find("Rigging::Module::InputsControls"), &readInputsControlsValue);
    EXPECT_EQ(find("Rigging::Module::Inputs"), &readInputsValue);
    EXPECT_EQ(find("Rigging::Module::Outputs"), &readOutputsValue);
    EXPECT_EQ(find("array<Core::Transform::Transform>"), &readTransformArrayValue);
    EXPECT_EQ(find("array<Rigging::Module::NamedTransforms>"), &readNamedTransformsArrayValue);
    EXPECT_EQ(find("array<Rigging::Module::Pins>"), &readPinsArrayValue);
    EXPECT_EQ(find("array<Rigging::Module::InputsJoints>"), &readInputsJointsArrayValue);
    EXPECT_EQ(find("array<Rigging::Module::InputsControls>"), &readInputsControlsArrayValue);
    EXPECT_EQ(find("array<Rigging::Module::Inputs>"), &readInputsArrayValue);
    EXPECT_EQ(find("array<Rigging::Module::Outputs>"), &readOutputsArrayValue);
}

TEST(TranslatorRegistry, FindsNoReaderForAnyOtherName) {
    for (const char* name :
         {"", "A", "z", "double", "Rigging::Module::", "Rigging::Module::Pin",
          "Rigging::Module::Pinss", "rigging::module::pins", "array<Rigging::Module::Pins>>",
          "array<array<Rigging::Module::Pins>>", "array< Rigging::Module::Pins >", "array<>"})
        EXPECT_EQ(registry().findReader(name), nullptr) << name;
}

template <typename Record, auto& write, auto& writeArray>
void expectWriters() {
    using Array = SharedArray<Record>;
    HostWriter ofRecord = &writeFromAny<Record, write>;
    HostWriter ofArray = &writeFromAny<Array, writeArray>;
    EXPECT_EQ(registry().findWriter(HeldIdentity<Record>::s_record), ofRecord);
    EXPECT_EQ(registry().findWriter(HeldIdentity<Array>::s_record), ofArray);
}

TEST(TranslatorRegistry, FindsTheWriterOfEachIdentity) {
    expectWriters<Transform, writeTransform, writeTransformArray>();
    expectWriters<NamedTransforms, writeNamedTransforms, writeNamedTransformsArray>();
    expectWriters<Pins, writePins, writePinsArray>();
    expectWriters<InputsJoints, writeInputsJoints, writeInputsJointsArray>();
    expectWriters<InputsControls, writeInputsControls, writeInputsControlsArray>();
    expectWriters<Inputs, writeInputs, writeInputsArray>();
    expectWriters<Outputs, writeOutputs, writeOutputsArray>();
}

// Another library's record of the same type.
TEST(TranslatorRegistry, FindsTheWriterOfAnEqualIdentityElsewhere) {
    const std::string name = HeldIdentity<Pins>::s_record.name;
    for (const std::uint32_t depth : {0u, 1u}) {
        const TypeInfo elsewhere(name.c_str(), depth);
        const TypeInfo& own =
            depth == 0 ? HeldIdentity<Pins>::s_record : HeldIdentity<SharedArray<Pins>>::s_record;
        ASSERT_NE(registry().findWriter(own), nullptr);
        EXPECT_EQ(registry().findWriter(elsewhere), registry().findWriter(own));
    }
}

TEST(TranslatorRegistry, FindsNoWriterForAnyOtherIdentity) {
    EXPECT_EQ(registry().findWriter(TypeInfo::s_void), nullptr);
    EXPECT_EQ(registry().findWriter(HeldIdentity<Pelmor::String>::s_record), nullptr);
    EXPECT_EQ(registry().findWriter(HeldIdentity<double>::s_record), nullptr);
    EXPECT_EQ(registry().findWriter(TypeInfo(HeldIdentity<Pins>::s_record.name, 2)), nullptr);
    TypeInfo qualified = HeldIdentity<Pins>::s_record;
    qualified.qualifier = 1;
    EXPECT_EQ(registry().findWriter(qualified), nullptr);
}

}  // namespace
