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

template <typename Records>
struct Translation : Tolvane::RecordTranslation<Records> {
    Translation() : Tolvane::RecordTranslation<Records>("list of a test") {}
};

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
    // Each of the entries has a place of its own on the heap.
    EXPECT_GE(failures, 8u);
}

class RegistryMemoryDeathTest : public testing::Test {
protected:
    // Of the operation that comes first: nobody but its children builds the registry.
    void expectTermination(const std::function<void()>& operation) {
        const Endings endings = endingsWithoutMemory(operation);
        EXPECT_GE(endings.size(), 4u);
        EXPECT_EQ(endings, times(endings.size(), Ending::kTerminates));
    }

    HostPort port = HostPort::ofRecord<Pins>();
    TavrikGraph::Executor::HostContext context{nullptr, &port.plug, &port.block};
};

TEST_F(RegistryMemoryDeathTest, EndsTheProcessWhereTheNamesAreAskedForFirst) {
    const Translation<Tolvane::RecordList<Pins>> translation;
    Pelmor::Array<Pelmor::String> names;
    expectTermination([&] { translation.getSupportedTypeNames(names); });
}

TEST_F(RegistryMemoryDeathTest, EndsTheProcessWhereAValueComesFromTheHostFirst) {
    const Translation<Tolvane::RecordList<Transform>> translation;
    const Pelmor::Type type = Pelmor::Library().getType("double");
    Pelmor::AnyValue value;
    expectTermination([&] { translation.translateFromHost(type, value, context); });
}

TEST_F(RegistryMemoryDeathTest, EndsTheProcessWhereAValueGoesToTheHostFirst) {
    const Translation<Tolvane::RecordList<Outputs>> translation;
    expectTermination([&] { translation.translateToHost(Pelmor::AnyValue(), context); });
}

TEST_F(RegistryMemoryDeathTest, EndsTheProcessWhereTheNamesHaveNoMemory) {
    const Translation<Rigging::Module::Records> translation;
    Pelmor::Array<Pelmor::String> names;
    translation.getSupportedTypeNames(names);
    expectTermination([&] { translation.getSupportedTypeNames(names); });
}

}  // namespace
