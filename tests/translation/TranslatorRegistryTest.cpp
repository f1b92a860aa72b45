#include "plugin/Records.h"
#include "tests/support/CarriedTypes.h"
#include "tests/translation/ScriptedTranslation.h"

#include <Tolvane/TranslatorRegistry.h>
#include <Tolvane/convert/Write.h>

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace TranslationTests;
using Pelmor::SharedArray;
using Pelmor::Internal::HeldIdentity;
using Pelmor::Internal::TypeInfo;
using Tolvane::HostWriter;
using Tolvane::TranslatorRegistry;
using Tolvane::writeFromAny;

const TranslatorRegistry& ofPlugin() {
    return TranslatorRegistry::instance<Rigging::Module::Records>();
}
const TranslatorRegistry& ofTests() {
    return TranslatorRegistry::instance<Tolvane::RecordList<First, Second>>();
}

TEST(TranslatorRegistry, HasTheReadersInTheOrderOfTheirNames) {
    std::vector<std::string> names;
    for (const auto& reader : ofPlugin().readers()) names.push_back(reader.first.asChar());
    EXPECT_EQ(names, TestSupport::carriedTypes());
}

TEST(TranslatorRegistry, HasTheWritersOfRecordsBeforeThoseOfArrays) {
    std::vector<const TypeInfo*> identities;
    for (const auto& writer : ofPlugin().writers()) identities.push_back(writer.first);
    ASSERT_EQ(identities.size(), TestSupport::carriedTypes().size());
    const std::size_t half = identities.size() / 2;
    for (std::size_t i = 0; i < half; ++i) {
        EXPECT_EQ(identities[i]->arrayDepth, 0u);
        EXPECT_EQ(identities[i + half]->arrayDepth, 1u);
        EXPECT_STREQ(identities[i]->name, identities[i + half]->name);
    }
    for (std::size_t i = 1; i < identities.size(); ++i)
        EXPECT_TRUE(typeInfoLess(*identities[i - 1], *identities[i])) << i;
}

template <typename Record>
class TranslatorRegistryOf : public testing::Test {};
TYPED_TEST_SUITE(TranslatorRegistryOf, TestSupport::RecordTypes, TestSupport::NameOfType);

TYPED_TEST(TranslatorRegistryOf, FindsTheReadersByName) {
    const std::string name = TestSupport::graphName<TypeParam>();
    const std::string arrayName = TestSupport::graphName<SharedArray<TypeParam>>();
    using Carry = Tolvane::Translators<TypeParam>;
    EXPECT_EQ(ofPlugin().findReader(name.c_str()), &Carry::readValue);
    EXPECT_EQ(ofPlugin().findReader(arrayName.c_str()), &Carry::readArrayValue);
}

TYPED_TEST(TranslatorRegistryOf, FindsTheWritersByIdentity) {
    using Array = SharedArray<TypeParam>;
    using Carry = Tolvane::Translators<TypeParam>;
    const HostWriter ofRecord = writeFromAny<TypeParam, Carry::write>;
    const HostWriter ofArray = writeFromAny<Array, Carry::writeArray>;
    EXPECT_EQ(ofPlugin().findWriter(HeldIdentity<TypeParam>::s_record), ofRecord);
    EXPECT_EQ(ofPlugin().findWriter(HeldIdentity<Array>::s_record), ofArray);
}

// Each name as the graph would report another type: nothing else may ever be taken for it.
TYPED_TEST(TranslatorRegistryOf, FindsNoReaderByANameThatDiffers) {
    const std::string name = TestSupport::graphName<TypeParam>();
    for (const std::string& full : {name, "array<" + name + ">"}) {
        std::vector<std::string> others{
            "x::" + full,    " " + full, full + " ",  full + "x",   "::" + full,
            "array<" + full, full + ">", full + "[]", full + "::x", "array<array<" + full + ">>"};
        for (std::size_t i = 0; i < full.size(); ++i) {
            others.push_back(full.substr(0, i));
            others.push_back(full.substr(i + 1));
            others.push_back(full.substr(0, i) + ' ' + full.substr(i));
            others.push_back(full);
            others.back()[i] = static_cast<char>(full[i] ^ 0x20);
        }
        const auto& carried = TestSupport::carriedTypes();
        for (const std::string& other : others) {
            const bool isCarried =
                std::find(carried.begin(), carried.end(), other) != carried.end();
            EXPECT_EQ(ofPlugin().findReader(other.c_str()) != nullptr, isCarried) << other;
        }
    }
}

TEST(TranslatorRegistry, ComparesNamesToTheLastCharacter) {
    // The list's own names begin alike and are of different lengths; these differ at the end alone.
    const std::string start(70, 'n');
    const TranslatorRegistry::NameLess less;
    EXPECT_TRUE(less((start + 'a').c_str(), (start + 'b').c_str()));
    EXPECT_FALSE(less((start + 'b').c_str(), (start + 'a').c_str()));
    EXPECT_TRUE(less(start.c_str(), (start + 'a').c_str()));
    EXPECT_FALSE(less(start.c_str(), start.c_str()));
}

// Another library's record of the same type.
TYPED_TEST(TranslatorRegistryOf, FindsTheWriterByAnEqualIdentityElsewhere) {
    const std::string name = HeldIdentity<TypeParam>::s_record.name;
    const TypeInfo record(name.c_str(), 0), array(name.c_str(), 1);
    EXPECT_EQ(ofPlugin().findWriter(record),
              ofPlugin().findWriter(HeldIdentity<TypeParam>::s_record));
    EXPECT_EQ(ofPlugin().findWriter(array),
              ofPlugin().findWriter(HeldIdentity<SharedArray<TypeParam>>::s_record));
}

TYPED_TEST(TranslatorRegistryOf, FindsNoWriterByAnIdentityThatDiffers) {
    const TypeInfo& own = HeldIdentity<TypeParam>::s_record;
    TypeInfo qualified = own;
    qualified.qualifier = 1;
    EXPECT_EQ(ofPlugin().findWriter(qualified), nullptr);
    EXPECT_EQ(ofPlugin().findWriter(TypeInfo(own.name, 2)), nullptr);
    const std::string longer = own.name + std::string("x");
    EXPECT_EQ(ofPlugin().findWriter(TypeInfo(longer.c_str(), 0)), nullptr);
    EXPECT_EQ(ofTests().findWriter(own), nullptr);
}

TEST(TranslatorRegistry, FindsNoWriterOfWhatNoListHas) {
    EXPECT_EQ(ofPlugin().findWriter(TypeInfo::s_void), nullptr);
    EXPECT_EQ(ofPlugin().findWriter(HeldIdentity<Pelmor::String>::s_record), nullptr);
    EXPECT_EQ(ofPlugin().findWriter(HeldIdentity<double>::s_record), nullptr);
    EXPECT_EQ(ofPlugin().findWriter(HeldIdentity<First>::s_record), nullptr);
}

}  // namespace
