// One translation object, used by many threads at once.
#include "tests/plugin/Rig.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/AllocationYield.h"
#include "tests/support/CarriedTypes.h"
#include "types/Transform.h"

#include <atomic>
#include <cstdlib>
#include <memory>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using Pelmor::AnyValue;
using TavrikGraph::Executor::TypeTranslation;

bool givesAllNames(const TypeTranslation& translation) {
    Pelmor::Array<Pelmor::String> names;
    translation.getSupportedTypeNames(names);
    return names.size() == 14;
}

// Runs `work` on so many threads, none of which begins before all are there; true where it always
// is.
template <typename Work>
bool runTogether(std::size_t count, const Work& work) {
    std::atomic<std::size_t> waiting{count}, failures{0};
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < count; ++i)
        threads.emplace_back([&, i] {
            --waiting;
            while (waiting > 0) std::this_thread::yield();
            if (!work(i)) ++failures;
        });
    for (std::thread& thread : threads) thread.join();
    return failures == 0;
}

// What one thread does of the three operations, with ports of its own.
bool carryOut(std::size_t operation, const TypeTranslation& translation, const Rig& rig,
              const AnyValue& value) {
    AnyValue read;
    switch (operation % 3) {
        case 0:
            return givesAllNames(translation);
        case 1:
            return translation.translateFromHost(rig.type, read, rig.input.context) &&
                   read.hasValue();
        default:
            return translation.translateToHost(value, rig.output.context) && rig.output.isClean();
    }
}

using Rigs = std::vector<std::unique_ptr<Rig>>;

Rigs rigsOf(const char* typeName, std::size_t count) {
    Rigs rigs;
    for (std::size_t i = 0; i < count; ++i) rigs.push_back(std::make_unique<Rig>(typeName));
    return rigs;
}

class RegistryThreadsDeathTest : public testing::Test {
protected:
    RegistryThreadsDeathTest() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

// In a process of its own, in which the registry has not been built yet. Its entries alone take
// more memory than anything else that the three operations do with an empty transform.
TEST_F(RegistryThreadsDeathTest, BuildItOnceWhereTheThreeOperationsComeTogether) {
    EXPECT_EXIT(
        {
            constexpr std::size_t kThreads = 9;
            constexpr std::uint64_t kEntries = 28;
            const Rigs rigs = rigsOf("Core::Transform::Transform", kThreads);
            const AnyValue value = AnyValue::holding(Core::Transform::Transform());
            std::atomic<int> building{0};
            const bool allAnswered = runTogether(kThreads, [&](std::size_t i) {
                const TestSupport::AllocationYield yield;
                const TestSupport::AllocationCount count;
                const bool answered = carryOut(i, *rigs[i]->translation, *rigs[i], value);
                if (count.allocations() >= kEntries) ++building;
                return answered;
            });
            std::_Exit(allAnswered && building == 1 ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST(TranslationThreads, ShareTheObjectForAllThreeOperations) {
    constexpr std::size_t kThreads = 6;
    const Translation translation = newTranslation();
    const Rigs rigs = rigsOf("Rigging::Module::InputsControls", kThreads);
    const AnyValue value = rigs.front()->value();
    EXPECT_TRUE(runTogether(kThreads, [&](std::size_t i) {
        bool allAnswered = true;
        for (std::size_t round = 0; round < 60; ++round)
            allAnswered &= carryOut(i + round, *translation, *rigs[i], value);
        return allAnswered;
    }));
}

class NodesOnTwoThreads : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(Carried, NodesOnTwoThreads, testing::ValuesIn(TestSupport::carriedTypes()),
                         TestSupport::nameOfTest);

// Each thread carries its own values through its own node, and between them the one that both
// share.
TEST_P(NodesOnTwoThreads, CarryTheirOwnValuesAndOneThatTheyShare) {
    const Rigs rigs = rigsOf(GetParam().c_str(), 2);
    const Rig other(GetParam().c_str());
    const AnyValue shared = other.value();
    const auto leavesOfInput = [](const Rig& rig) {
        return TestSupport::leavesOf(rig.inputData(), rig.input.plug);
    };
    const auto leavesOfOutput = [](const Rig& rig) {
        return TestSupport::leavesOf(rig.outputData(), rig.output.plug);
    };
    const TestSupport::Leaves leavesOfShared = leavesOfInput(other);
    EXPECT_TRUE(runTogether(2, [&](std::size_t i) {
        const Rig& rig = *rigs[i];
        for (unsigned frame = 0; frame < 25; ++frame) {
            TestSupport::Numbers numbers(1000 * static_cast<unsigned>(i) + frame, {1, frame % 3});
            TestSupport::number(numbers, rig.inputData(), rig.input.plug);
            const AnyValue sharing(shared);
            AnyValue own;
            if (!rig.read(own) || !rig.write(own)) return false;
            if (leavesOfOutput(rig) != leavesOfInput(rig)) return false;
            if (!rig.write(sharing) || leavesOfOutput(rig) != leavesOfShared) return false;
        }
        return true;
    }));
}

}  // namespace
