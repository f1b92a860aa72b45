// What becomes of the operations that build the registry, and of those that ask it for names, where
// the heap runs out.
#include "plugin/Records.h"
#include "tests/support/Endings.h"
#include "tests/support/TranslatedPort.h"

#include <Tolvane/RecordTranslation.h>

#include <functional>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;

// Nobody but the children of this test builds a registry of this list.
struct UnbuiltTranslation : Tolvane::RecordTranslation<Tolvane::RecordList<Transform, Pins>> {
    UnbuiltTranslation() : RecordTranslation("list of a test") {}
};

TEST(RegistryMemoryDeathTest, FirstOperationEndsTheProcessWhicheverAllocationFails) {
    // Each record has four entries, and each entry a place of its own on the heap.
    constexpr std::size_t kEntries = 8;
    const UnbuiltTranslation translation;
    const TranslatedPort port(attributeFor<Pins>("value"));
    const Pelmor::Type type = Pelmor::Library().getType("double");
    Pelmor::Array<Pelmor::String> names;
    Pelmor::AnyValue value;
    const std::function<void()> operations[] = {
        [&] { translation.getSupportedTypeNames(names); },
        [&] { translation.translateFromHost(type, value, port.context); },
        [&] { translation.translateToHost(value, port.context); }};
    for (const auto& operation : operations) {
        const Endings endings = endingsWithoutMemory(operation);
        EXPECT_GE(endings.size(), kEntries);
        EXPECT_EQ(endings, times(endings.size(), Ending::kTerminates));
    }
}

}  // namespace
