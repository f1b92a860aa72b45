// One translation object, used by two threads at once.
#include "tests/plugin/Rig.h"
#include "tests/support/CarriedTypes.h"
#include "tests/support/RunTogether.h"

#include <atomic>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using Pelmor::AnyValue;
using TestSupport::Leaves;

class TranslationOnTwoThreads : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(Carried, TranslationOnTwoThreads,
                         testing::ValuesIn(TestSupport::carriedTypes()), TestSupport::nameOfTest);

// Each thread carries its own values through its own node, and between them the one that both
// share.
TEST_P(TranslationOnTwoThreads, CarriesTheValuesOfEachAndOneThatTheyShare) {
    const Rig rigs[] = {Rig(GetParam().c_str()), Rig(GetParam().c_str())};
    const Rig other(GetParam().c_str());
    const TavrikGraph::Executor::TypeTranslation& translation = *other.translation;
    const AnyValue shared = other.value();
    const Leaves leavesOfShared = other.input.leaves();
    std::atomic<unsigned> failures{0};
    TestSupport::runTogether(2, [&](std::size_t i) {
        const Rig& rig = rigs[i];
        const auto writes = [&](const AnyValue& value, const Leaves& expected) {
            return translation.translateToHost(value, rig.output.context) &&
                   rig.output.leaves() == expected;
        };
        for (unsigned frame = 0; frame < 25; ++frame) {
            TestSupport::Numbers numbers(1000 * static_cast<unsigned>(i) + frame, {1, frame % 3});
            TestSupport::number(numbers, rig.input.handle, rig.input.plug);
            Pelmor::Array<Pelmor::String> names;
            translation.getSupportedTypeNames(names);
            failures += names.size() != TestSupport::carriedTypes().size();
            const AnyValue sharing(shared);
            AnyValue own;
            failures += !translation.translateFromHost(rig.type, own, rig.input.context);
            failures += !writes(own, rig.input.leaves());
            failures += !writes(sharing, leavesOfShared);
        }
    });
    EXPECT_EQ(failures, 0u);
}

}  // namespace
