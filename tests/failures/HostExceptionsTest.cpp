// What becomes of the translation's operations where a call of the host throws, at each of their
// calls in turn. It stands for whatever may throw in the middle of them.
#include "tests/plugin/EditedNode.h"
#include "tests/plugin/Rig.h"
#include "tests/support/CarriedTypes.h"
#include "tests/support/Endings.h"
#include "tests/support/ShownErrors.h"

#include <OpenVornik/Testing/CallObserver.h>

#include <exception>
#include <functional>
#include <ios>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace {

using namespace PluginTests;
using TestSupport::Ending;
using TestSupport::Endings;
using TestSupport::endingsOf;
using TestSupport::ShownErrors;
using TestSupport::times;

using Raise = std::function<void()>;

class HostThatThrows : public OpenVornik::Testing::CallObserver {
public:
    HostThatThrows(std::uint64_t nth, Raise raise) : m_callsToGo(nth), m_raise(std::move(raise)) {}

    bool hasThrown() const noexcept { return m_callsToGo == 0; }

private:
    VStatus::Code called(const OpenVornik::Testing::Call&) override {
        if (m_callsToGo > 0 && --m_callsToGo == 0) m_raise();
        return VStatus::kSuccess;
    }

    std::uint64_t m_callsToGo;
    Raise m_raise;
};

struct NoStandardException {};
// As a library of the host might derive one.
struct HostError : std::range_error {
    using range_error::range_error;
};

const Raise kRuntimeError = [] { throw std::runtime_error("thrown by the host"); };
const std::vector<Raise> kOthers = {[] { throw std::logic_error("no runtime error"); },
                                    [] { throw std::bad_alloc(); }, [] { throw std::exception(); },
                                    [] { throw NoStandardException(); }, [] { throw 42; }};

Endings endingsWhereTheHostThrows(const Raise& raise, const std::function<void()>& operation) {
    return endingsOf([&](std::uint64_t nth) {
        const HostThatThrows host(nth, raise);
        operation();
        return host.hasThrown();
    });
}

void expectTermination(const Raise& raise, const std::function<void()>& operation) {
    const Endings endings = endingsWhereTheHostThrows(raise, operation);
    EXPECT_GT(endings.size(), 1u);
    EXPECT_EQ(endings, times(endings.size(), Ending::kTerminates));
}

class HostExceptionsDeathTest : public testing::TestWithParam<std::string> {
protected:
    const Rig rig{GetParam().c_str()};
    ShownErrors errors;
};
INSTANTIATE_TEST_SUITE_P(Carried, HostExceptionsDeathTest,
                         testing::ValuesIn(TestSupport::carriedTypes()), TestSupport::nameOfTest);

TEST_P(HostExceptionsDeathTest, EndTheProcessWhereAValueComesFromTheHost) {
    Pelmor::AnyValue value = rig.value();
    expectTermination(kRuntimeError, [&] { rig.read(value); });
}

TEST_P(HostExceptionsDeathTest, EndTheProcessWhereAValueGoesToTheHostUnlessTheyAreRuntimeErrors) {
    const Pelmor::AnyValue value = rig.value();
    expectTermination(kOthers.front(), [&] { rig.write(value); });
}

// The output is taken before the writer is called: that is the call that may not throw.
TEST_P(HostExceptionsDeathTest, AreShownWhereAWriterMeetsARuntimeError) {
    const Pelmor::AnyValue value = rig.value();
    const Endings endings = endingsWhereTheHostThrows(kRuntimeError, [&] { rig.write(value); });
    Endings expected = times(endings.size(), Ending::kReturns);
    expected.front() = Ending::kTerminates;
    EXPECT_EQ(endings, expected);

    // The last two calls mark the port clean. The writer of an array has done so by then.
    const bool isArray = rig.output.plug.isArray();
    for (std::uint64_t nth = 2; nth <= endings.size(); ++nth) {
        const Rig fresh(GetParam().c_str());
        ShownErrors ofOneCall;
        const HostThatThrows host(nth, kRuntimeError);
        EXPECT_TRUE(fresh.write(value)) << nth;
        EXPECT_EQ(ofOneCall.messages(), ShownErrors::Messages{"thrown by the host"}) << nth;
        EXPECT_EQ(fresh.output.isClean(), isArray && nth > endings.size() - 2) << nth;
    }
}

class HostExceptionDeathTest : public testing::Test {
protected:
    const Rig rig{"Rigging::Module::Pins"};
    const Pelmor::AnyValue value = rig.value();
    ShownErrors errors;
};

TEST_F(HostExceptionDeathTest, EndsTheProcessWhateverItIsUnlessARuntimeError) {
    for (const Raise& raise : kOthers) expectTermination(raise, [&] { rig.write(value); });
}

TEST_F(HostExceptionDeathTest, EndsTheProcessFromAReaderWhateverItIs) {
    Pelmor::AnyValue read;
    for (const Raise& raise : kOthers) expectTermination(raise, [&] { rig.read(read); });
}

TEST_F(HostExceptionDeathTest, EndsTheProcessWhereTheMessageOfAWriterIsShown) {
    TestSupport::setIndices(rig.outputData().child(VPlug(rig.output.plug).child(0)), {0, 5});
    const Endings endings = endingsWhereTheHostThrows(kRuntimeError, [&] { rig.write(value); });
    Endings expected = times(endings.size(), Ending::kReturns);
    expected.front() = expected.back() = Ending::kTerminates;
    EXPECT_EQ(endings, expected);
}

TEST_F(HostExceptionDeathTest, IsShownWhereItIsDerivedFromARuntimeError) {
    const std::vector<Raise> derived = {[] { throw HostError("a"); },
                                        [] { throw std::overflow_error("a"); },
                                        [] { throw std::underflow_error("a"); },
                                        [] { throw std::system_error(std::error_code(), "a"); },
                                        [] { throw std::ios_base::failure("a"); }};
    for (const Raise& raise : derived) {
        std::string text;
        try {
            raise();
        } catch (const std::runtime_error& error) {
            text = error.what();
        }
        ShownErrors ofOneCall;
        // The writer's first call.
        const HostThatThrows host(2, raise);
        EXPECT_TRUE(rig.write(value));
        EXPECT_EQ(ofOneCall.messages(), ShownErrors::Messages{text});
    }
}

using HostExceptionWhileEditingDeathTest = EditedNode;

TEST_F(HostExceptionWhileEditingDeathTest, EndsTheProcessWhateverItIs) {
    const Pelmor::Type type = library.getType("Rigging::Module::Pins");
    expectTermination(kRuntimeError, [&] { add("port", type); });
    for (const Raise& raise : kOthers) expectTermination(raise, [&] { add("port", type); });
}

TEST_F(HostExceptionWhileEditingDeathTest, EndsTheProcessWhereARefusalIsShown) {
    const Pelmor::Type matrix = library.getType("Math::double4x4");
    expectTermination(kRuntimeError, [&] { add("port", matrix); });
    const Pelmor::Type arrays = library.getType("array<array<Rigging::Module::Pins>>");
    expectTermination(kRuntimeError, [&] { add("port", arrays); });
}

}  // namespace
