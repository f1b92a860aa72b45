// What becomes of the registry, and of the operations that build it, where the heap runs out. Each
// test has a list of records of its own, whose registry nobody has built yet.
#include "plugin/Records.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/Endings.h"
#include "tests/support/HostPort.h"
#include "translation/RecordTranslation.h"

#include <functional>
#include <new>

#include <gtest/gtest.h>

namespace {

using namespace TestSupport;
using Tolvane::TranslatorRegistry;

// Each has a place of its own on the heap.
constexpr std::size_t kEntriesOfTwoRecords = 8;

TEST(RegistryMemory, ConstructionThatThrowsIsTriedAgainByTheNextCall) {
    using List = Tolvane::RecordList<Pins, Transform>;
    std::uint64_t failures = 0;
    for (bool isBuilt = false; !isBuilt;) {
        const AllocationCount count;
        const AllocationFailure failure(failures + 1);
        try {
            const TranslatorRegistry& registry = TranslatorRegistry::instance<List>();
            isBuilt = true;
            EXPECT_TRUE(failure.isPending());
            EXPECT_EQ(registry.readers().size(), 4u);
            EXPECT_EQ(registry.writers().size(), 4u);
            EXPECT_EQ(&registry, &TranslatorRegistry::instance<List>());
        } catch (const std::bad_alloc&) {
            ++failures;
            EXPECT_EQ(count.outstanding(), 0);
        }
    }
    EXPECT_GE(failures, kEntriesOfTwoRecords);
}

// Nobody but the children of these tests builds a registry of this list.
using Unbuilt = Tolvane::RecordList<Transform, Pins>;

TEST(RegistryMemoryDeathTest, OperationsThatBuildItEndTheProcess) {
    struct : Tolvane::RecordTranslation<Unbuilt> {
        using RecordTranslation::RecordTranslation;
    } const translation{"list of a test"};
    const HostPort port = HostPort::ofRecord<Pins>();
    VPlug plug = port.plug;
    VDataBlock block = port.block;
    const TavrikGraph::Executor::HostContext context{nullptr, &plug, &block};
    const Pelmor::Type type = Pelmor::Library().getType("double");
    Pelmor::Array<Pelmor::String> names;
    Pelmor::AnyValue value;
    const std::function<void()> operations[] = {
        [&] { translation.getSupportedTypeNames(names); },
        [&] { translation.translateFromHost(type, value, context); },
        [&] { translation.translateToHost(value, context); }};
    for (const auto& operation : operations) {
        const Endings endings = endingsWithoutMemory(operation);
        EXPECT_GE(endings.size(), kEntriesOfTwoRecords);
        EXPECT_EQ(endings, times(endings.size(), Ending::kTerminates));
    }
}

}  // namespace
