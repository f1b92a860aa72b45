// The way to a reader or a writer takes no memory: a translation takes what that function takes.
#include "tests/plugin/Rig.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/CarriedTypes.h"
#include "translation/TranslatorRegistry.h"

#include <gtest/gtest.h>

namespace {

using namespace PluginTests;
using Pelmor::AnyValue;
using TestSupport::AllocationCount;
using Tolvane::TranslatorRegistry;

template <typename Operation>
std::uint64_t allocationsOf(Operation operation) {
    const AllocationCount count;
    operation();
    return count.allocations();
}

class DispatchAllocations : public testing::TestWithParam<std::string> {
protected:
    const Rig rig{GetParam().c_str()};
    const AnyValue value = rig.value();
};
INSTANTIATE_TEST_SUITE_P(Carried, DispatchAllocations,
                         testing::ValuesIn(TestSupport::carriedTypes()), TestSupport::nameOfTest);

TEST_P(DispatchAllocations, OfReadingAreTheReadersAlone) {
    AnyValue read;
    VDataHandle data = rig.inputData();
    const auto reader =
        TranslatorRegistry::instance<Rigging::Module::Records>().findReader(GetParam().c_str());
    const auto ofReader = allocationsOf([&] { reader(read, data, rig.input.plug); });
    EXPECT_GT(ofReader, 0u);
    EXPECT_EQ(allocationsOf([&] { rig.read(read); }), ofReader);
}

TEST_P(DispatchAllocations, OfWritingAreTheWritersAlone) {
    ASSERT_TRUE(rig.write(value));
    VDataHandle data = rig.outputData();
    const auto writer =
        TranslatorRegistry::instance<Rigging::Module::Records>().findWriter(value.type());
    const auto ofWriter = allocationsOf([&] { writer(value, data, rig.output.plug); });
    EXPECT_EQ(allocationsOf([&] { rig.write(value); }), ofWriter);
}

TEST(DispatchAllocationsOfNothing, AreNone) {
    const Rig pins("Rigging::Module::Pins");
    const AnyValue carried = pins.value();
    HostPort port;
    // The host would take memory to evaluate it.
    port.block.setClean(port.attribute);
    const Pelmor::Type number = Pelmor::Library().getType("double");
    const AnyValue empty;
    const AnyValue text = AnyValue::holding(Pelmor::String("walk"));
    AnyValue read;
    EXPECT_EQ(allocationsOf([&] {
                  pins.translation->translateFromHost(number, read, port.context);
                  pins.translation->translateToHost(empty, port.context);
                  pins.translation->translateToHost(text, port.context);
              }),
              0u);
}

}  // namespace
