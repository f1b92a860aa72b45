// When the registry is built. Each test looks at a process in which that has not happened yet.
#include "plugin/Records.h"
#include "tests/plugin/HostPort.h"
#include "tests/plugin/Translation.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/AllocationFailure.h"
#include "tests/support/AllocationYield.h"
#include "translation/TranslatorRegistry.h"

#include <Pelmor/Library.h>

#include <atomic>
#include <cstdlib>
#include <functional>
#include <new>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using TavrikGraph::Executor::TypeTranslation;
using TestSupport::AllocationCount;
using TestSupport::AllocationFailure;
using Tolvane::TranslatorRegistry;

// The registry has twenty-eight entries, each with a place of its own on the heap; no operation
// takes as much for anything else.
constexpr std::uint64_t kAllocationsOfABuild = 28;

bool builds(const std::function<void()>& operation) {
    const AllocationCount count;
    operation();
    return count.allocations() >= kAllocationsOfABuild;
}

// How many of several threads that call `operation` together build the registry.
int threadsThatBuild(const std::function<void()>& operation) {
    constexpr int kThreads = 8;
    std::atomic<int> waiting{kThreads}, building{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&] {
            --waiting;
            while (waiting > 0) std::this_thread::yield();
            const TestSupport::AllocationYield yield;
            if (builds(operation)) ++building;
        });
    for (std::thread& thread : threads) thread.join();
    return building;
}

void addPort(const TypeTranslation& translation) {
    VDGModifier modifier;
    TavrikGraph::Executor::NodeEditContext context{nullptr, VFnDependencyNode().create("rig"),
                                                   nullptr, &modifier};
    const Pelmor::Type type = Pelmor::Library().getType("Rigging::Module::Pins");
    translation.portAdded("pins", TavrikGraph::Executor::PortDirection::Input, type, 0, 0,
                          &context);
}

[[noreturn]] void leave(bool asExpected) { std::_Exit(asExpected ? 0 : 1); }

class RegistryLifeDeathTest : public testing::Test {
protected:
    RegistryLifeDeathTest() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }

    static bool isComplete() {
        const TranslatorRegistry& registry =
            TranslatorRegistry::instance<Rigging::Module::Records>();
        return registry.readers().size() == 14 && registry.writers().size() == 14;
    }

    const testing::ExitedWithCode m_asExpected{0};
};

TEST_F(RegistryLifeDeathTest, IsBuiltOnceByThreadsThatAskForNamesTogether) {
    EXPECT_EXIT(
        {
            const Translation translation = newTranslation();
            const int building = threadsThatBuild([&] {
                Pelmor::Array<Pelmor::String> names;
                translation->getSupportedTypeNames(names);
                if (names.size() != 14) leave(false);
            });
            leave(building == 1 && isComplete());
        },
        m_asExpected, "");
}

TEST_F(RegistryLifeDeathTest, IsBuiltOnceByThreadsThatTranslateFromTheHostTogether) {
    EXPECT_EXIT(
        {
            const Translation translation = newTranslation();
            const Pelmor::Type type = Pelmor::Library().getType("double");
            const int building = threadsThatBuild([&] {
                HostPort port;
                Pelmor::AnyValue value;
                if (translation->translateFromHost(type, value, port.context)) leave(false);
            });
            leave(building == 1 && isComplete());
        },
        m_asExpected, "");
}

TEST_F(RegistryLifeDeathTest, IsBuiltOnceByThreadsThatTranslateToTheHostTogether) {
    EXPECT_EXIT(
        {
            const Translation translation = newTranslation();
            const int building = threadsThatBuild([&] {
                HostPort port;
                if (translation->translateToHost(Pelmor::AnyValue(), port.context)) leave(false);
            });
            leave(building == 1 && isComplete());
        },
        m_asExpected, "");
}

TEST_F(RegistryLifeDeathTest, IsNotBuiltBeforeItIsNeeded) {
    EXPECT_EXIT(
        {
            Translation translation = newTranslation();
            addPort(*translation);
            translation = newTranslation();
            const bool first =
                builds([] { TranslatorRegistry::instance<Rigging::Module::Records>(); });
            leave(first && isComplete());
        },
        m_asExpected, "");
}

TEST_F(RegistryLifeDeathTest, IsNotBuiltAgain) {
    EXPECT_EXIT(
        {
            Translation translation = newTranslation();
            Pelmor::Array<Pelmor::String> names;
            translation->getSupportedTypeNames(names);
            const TranslatorRegistry* before =
                &TranslatorRegistry::instance<Rigging::Module::Records>();
            translation = newTranslation();
            const bool again = builds([&] { translation->getSupportedTypeNames(names); });
            leave(!again && before == &TranslatorRegistry::instance<Rigging::Module::Records>());
        },
        m_asExpected, "");
}

TEST_F(RegistryLifeDeathTest, IsBuiltByTheNextCallWhereTheFirstThrows) {
    EXPECT_EXIT(
        {
            int refused = 0;
            for (std::uint64_t nth = 1; nth <= kAllocationsOfABuild; ++nth) {
                const AllocationFailure failure(nth);
                try {
                    TranslatorRegistry::instance<Rigging::Module::Records>();
                } catch (const std::bad_alloc&) {
                    ++refused;
                }
            }
            leave(refused == kAllocationsOfABuild && isComplete());
        },
        m_asExpected, "");
}

TEST_F(RegistryLifeDeathTest, LeaksNothingWhereItsConstructionThrows) {
    EXPECT_EXIT(
        {
            const AllocationCount count;
            const AllocationFailure failure(kAllocationsOfABuild);
            try {
                TranslatorRegistry::instance<Rigging::Module::Records>();
            } catch (const std::bad_alloc&) {
                leave(count.outstanding() == 0);
            }
            leave(false);
        },
        m_asExpected, "");
}

TEST(RegistryLife, OutlivesTheObjects) {
    Translation translation = newTranslation();
    Pelmor::Array<Pelmor::String> names;
    translation->getSupportedTypeNames(names);
    const TranslatorRegistry* before = &TranslatorRegistry::instance<Rigging::Module::Records>();
    translation.reset();
    EXPECT_EQ(&TranslatorRegistry::instance<Rigging::Module::Records>(), before);
    EXPECT_EQ(before->readers().size(), 14u);
}

}  // namespace
