// Lets one call of the host go wrong, which fails or throws, and notes the operations called.
#pragma once

#include "tests/support/Endings.h"
#include "tests/support/ShownErrors.h"

#include <OpenVornik/Testing/CallObserver.h>

#include <functional>
#include <new>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace FaultTests {

using Operations = std::vector<std::string_view>;
using Raise = std::function<void()>;

// The kinds that a sweep uses in turn.
inline constexpr VStatus::Code kFailures[] = {VStatus::kFailure, VStatus::kInvalidParameter,
                                              VStatus::kNotFound};
inline const Raise kRuntimeErrors[] = {[] { throw std::runtime_error("the host's"); },
                                       [] { throw std::range_error("derived from it"); },
                                       [] { throw std::system_error(std::error_code(), "too"); }};
inline const Raise kOtherExceptions[] = {[] { throw std::logic_error("no runtime error"); },
                                         [] { throw std::bad_alloc(); }, [] { throw 42; }};
template <typename Kind, std::size_t count>
const Kind& inTurn(const Kind (&kinds)[count], std::size_t nth) {
    return kinds[nth % count];
}

class CallFault : public OpenVornik::Testing::CallObserver {
public:
    // The `nth` call from now on, counted from 1, throws, if `raise` does, or gives `status`; none
    // does for 0.
    explicit CallFault(std::size_t nth = 0, Raise raise = {},
                       VStatus::Code status = VStatus::kSuccess)
        : m_nth(nth), m_raise(std::move(raise)), m_status(status) {}

    // The one that went wrong included.
    const Operations& operations() const noexcept { return m_operations; }
    bool hasHappened() const noexcept { return m_nth > 0 && m_operations.size() >= m_nth; }

private:
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        m_operations.push_back(call.operation);
        if (m_operations.size() != m_nth) return VStatus::kSuccess;
        if (m_raise) m_raise();
        return m_status;
    }

    std::size_t m_nth;
    Raise m_raise;
    VStatus::Code m_status;
    Operations m_operations;
};

// It listens for errors as well: the host keeps the room that it makes for its first listener,
// which would pass for a leak later.
template <typename Operation>
Operations operationsOf(const Operation& operation) {
    const TestSupport::ShownErrors errors;
    const CallFault none;
    operation();
    return none.operations();
}

// That no exception passes, whatever it is and whichever call or allocation it comes from.
inline void expectTermination(const std::function<void()>& operation) {
    using namespace TestSupport;
    const Endings whereCallsThrow = endingsOf([&](std::uint64_t nth) {
        const CallFault fault(nth, nth % 2 == 0 ? inTurn(kRuntimeErrors, nth / 2)
                                                : inTurn(kOtherExceptions, nth / 2));
        operation();
        return fault.hasHappened();
    });
    const Endings withoutMemory = endingsWithoutMemory(operation);
    for (const Endings& endings : {whereCallsThrow, withoutMemory}) {
        EXPECT_GT(endings.size(), 0u);
        EXPECT_EQ(endings, times(endings.size(), Ending::kTerminates));
    }
}

}  // namespace FaultTests
