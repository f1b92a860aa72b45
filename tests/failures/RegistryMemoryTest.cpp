// The operations that come first build the registry, where no exception may pass. Each test has a
// process of its own, in which that has not happened yet.
#include "plugin/Records.h"
#include "tests/plugin/Rig.h"
#include "tests/support/Endings.h"

#include <cstdlib>
#include <functional>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using TestSupport::Ending;
using TestSupport::Endings;

// Each of the registry's entries has a place of its own on the heap.
constexpr std::size_t kEntries = 28;

[[noreturn]] void leaveAfter(const std::function<void()>& firstOperation) {
    const Endings endings = TestSupport::endingsWithoutMemory(firstOperation);
    const bool isExpected = endings.size() >= kEntries &&
                            endings == TestSupport::times(endings.size(), Ending::kTerminates);
    std::_Exit(isExpected ? 0 : 1);
}

class RegistryWithoutMemoryDeathTest : public testing::Test {
protected:
    RegistryWithoutMemoryDeathTest() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }

    const testing::ExitedWithCode m_asExpected{0};
};

TEST_F(RegistryWithoutMemoryDeathTest, EndsTheProcessWhenTheNamesAreAskedForFirst) {
    EXPECT_EXIT(
        {
            const Translation translation = newTranslation();
            Pelmor::Array<Pelmor::String> names;
            leaveAfter([&] { translation->getSupportedTypeNames(names); });
        },
        m_asExpected, "");
}

TEST_F(RegistryWithoutMemoryDeathTest, EndsTheProcessWhenAValueComesFromTheHostFirst) {
    EXPECT_EXIT(
        {
            const Rig rig("Rigging::Module::Pins");
            Pelmor::AnyValue value;
            leaveAfter([&] { rig.read(value); });
        },
        m_asExpected, "");
}

TEST_F(RegistryWithoutMemoryDeathTest, EndsTheProcessWhenAValueGoesToTheHostFirst) {
    EXPECT_EXIT(
        {
            const Rig rig("Rigging::Module::Pins");
            const Pelmor::AnyValue value = Pelmor::AnyValue::holding(Rigging::Module::Pins());
            leaveAfter([&] { rig.write(value); });
        },
        m_asExpected, "");
}

}  // namespace
