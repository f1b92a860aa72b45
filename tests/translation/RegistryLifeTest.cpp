// When the registry is built. Each test looks at a process in which that has not happened yet.
#include "tests/support/AllocationCount.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/AllocationYield.h"
#include "tests/support/CarriedTypes.h"
#include "tests/support/RunTogether.h"
#include "tests/support/TranslatedPort.h"

#include <OpenVornik/Testing/CallObserver.h>
#include <Pelmor/Library.h>
#include <Tolvane/RecordTranslation.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <new>
#include <optional>
#include <string_view>

#include <gtest/gtest.h>

namespace {

using Pelmor::AnyValue;
using TestSupport::AllocationCount;
using TestSupport::AllocationFailure;
using TestSupport::TranslatedPort;
using Tolvane::TranslatorRegistry;

class Translation : public Tolvane::RecordTranslation<Rigging::Module::Records> {
public:
    Translation() : RecordTranslation("of the plugin's records") {}
};

const TranslatorRegistry& registry() {
    return TranslatorRegistry::instance<Rigging::Module::Records>();
}

// Each of the registry's entries, a reader and a writer for each type, has a place of its own on
// the heap; no operation takes as much for anything else.
std::uint64_t allocationsOfABuild() { return 2 * TestSupport::carriedTypes().size(); }

bool builds(const std::function<void()>& operation) {
    const AllocationCount count;
    operation();
    return count.allocations() >= allocationsOfABuild();
}

void askForNames(const Translation& translation) {
    Pelmor::Array<Pelmor::String> names;
    translation.getSupportedTypeNames(names);
}
bool isComplete() {
    return registry().readers().size() == TestSupport::carriedTypes().size() &&
           registry().writers().size() == TestSupport::carriedTypes().size();
}

[[noreturn]] void leave(bool asExpected) { std::_Exit(asExpected ? 0 : 1); }

class RegistryLifeDeathTest : public testing::Test {
protected:
    RegistryLifeDeathTest() {
        testing::FLAGS_gtest_death_test_style = "threadsafe";
        // Not in the middle of what is counted.
        TestSupport::carriedTypes();
    }

    Translation translation;
    TranslatedPort port{TestSupport::doubleAttribute("port")};
    const testing::ExitedWithCode m_asExpected{0};
};

TEST_F(RegistryLifeDeathTest, IsBuiltOnceByThreadsThatComeTogether) {
    EXPECT_EXIT(
        {
            const Pelmor::Type type = Pelmor::Library().getType("double");
            std::atomic<int> building{0};
            TestSupport::runTogether(9, [&](std::size_t i) {
                TranslatedPort own(TestSupport::doubleAttribute("port"));
                AnyValue value;
                const TestSupport::AllocationYield yield;
                const bool first = builds([&] {
                    if (i % 3 == 0) askForNames(translation);
                    if (i % 3 == 1) translation.translateFromHost(type, value, own.context);
                    if (i % 3 == 2) translation.translateToHost(value, own.context);
                });
                if (first) ++building;
            });
            leave(building == 1 && isComplete());
        },
        m_asExpected, "");
}

// What a thread had taken from the heap when the host was asked for a port's data.
class AllocationsBeforeCall : public OpenVornik::Testing::CallObserver {
public:
    explicit AllocationsBeforeCall(std::string_view operation) : m_operation(operation) {}

    std::optional<std::uint64_t> allocations;

private:
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        if (call.operation == m_operation) allocations = m_count.allocations();
        return VStatus::kSuccess;
    }

    std::string_view m_operation;
    AllocationCount m_count;
};

TEST_F(RegistryLifeDeathTest, IsBuiltAfterTheHostIsAskedForTheInput) {
    EXPECT_EXIT(
        {
            const Pelmor::Type type = Pelmor::Library().getType("double");
            AnyValue value;
            const AllocationsBeforeCall before("VDataBlock::inputValue");
            const bool first =
                builds([&] { translation.translateFromHost(type, value, port.context); });
            leave(first && before.allocations && *before.allocations < allocationsOfABuild());
        },
        m_asExpected, "");
}

TEST_F(RegistryLifeDeathTest, IsBuiltAfterTheHostIsAskedForTheOutput) {
    EXPECT_EXIT(
        {
            const AllocationsBeforeCall before("VDataBlock::outputValue");
            const bool first =
                builds([&] { translation.translateToHost(AnyValue(), port.context); });
            leave(first && before.allocations && *before.allocations < allocationsOfABuild());
        },
        m_asExpected, "");
}

TEST_F(RegistryLifeDeathTest, IsNotBuiltBeforeItIsNeeded) {
    EXPECT_EXIT(
        {
            VDGModifier modifier;
            TavrikGraph::Executor::NodeEditContext context{};
            context.node = VFnDependencyNode().create("rig");
            context.modifier = &modifier;
            const Pelmor::Type type = Pelmor::Library().getType("Rigging::Module::Pins");
            translation.portAdded("pins", TavrikGraph::Executor::PortDirection::Input, type, 0, 0,
                                  &context);
            leave(builds([] { registry(); }) && isComplete());
        },
        m_asExpected, "");
}

TEST_F(RegistryLifeDeathTest, IsNotBuiltAgain) {
    EXPECT_EXIT(
        {
            askForNames(translation);
            const TranslatorRegistry* before = &registry();
            const Pelmor::Type type = Pelmor::Library().getType("double");
            AnyValue value;
            const bool again = builds([&] {
                const Translation other;
                askForNames(other);
                other.translateFromHost(type, value, port.context);
                other.translateToHost(value, port.context);
            });
            leave(!again && before == &registry());
        },
        m_asExpected, "");
}

TEST_F(RegistryLifeDeathTest, IsBuiltByTheNextCallWhereTheFirstThrows) {
    EXPECT_EXIT(
        {
            std::uint64_t refused = 0;
            for (std::uint64_t nth = 1; nth <= allocationsOfABuild(); ++nth) {
                const AllocationCount count;
                const AllocationFailure failure(nth);
                try {
                    registry();
                } catch (const std::bad_alloc&) {
                    if (count.outstanding() == 0) ++refused;
                }
            }
            leave(refused == allocationsOfABuild() && isComplete());
        },
        m_asExpected, "");
}

}  // namespace
