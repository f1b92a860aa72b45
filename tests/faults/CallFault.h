// Lets one call of the host go wrong, which fails or throws, and notes the operations that are
// called.
#pragma once

#include <OpenVornik/Testing/CallObserver.h>

#include <exception>
#include <functional>
#include <ios>
#include <new>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace FaultTests {

using Operations = std::vector<std::string_view>;
using Raise = std::function<void()>;

struct NoStandardException {};
// As a library of the host might derive one.
struct HostError : std::range_error {
    using range_error::range_error;
};

inline const Raise kRuntimeErrors[] = {[] { throw std::runtime_error("the host's"); },
                                       [] { throw HostError("the host's own"); },
                                       [] { throw std::system_error(std::error_code(), "system"); },
                                       [] { throw std::ios_base::failure("stream"); }};
inline const Raise kOtherExceptions[] = {
    [] { throw std::logic_error("no runtime error"); }, [] { throw std::bad_alloc(); },
    [] { throw std::exception(); }, [] { throw NoStandardException(); }, [] { throw 42; }};

// A sweep uses the kinds of a fault in turn.
template <typename Kind, std::size_t count>
const Kind& inTurn(const Kind (&kinds)[count], std::size_t nth) {
    return kinds[nth % count];
}
inline constexpr VStatus::Code kFailures[] = {VStatus::kFailure, VStatus::kInvalidParameter,
                                              VStatus::kNotFound};

class CallFault : public OpenVornik::Testing::CallObserver {
public:
    // Noting an operation takes no memory, as long as no test makes more calls than these.
    CallFault() { m_operations.reserve(1u << 11); }
    // The `nth` call from now on, counted from 1, gives `status`; none does for 0.
    CallFault(std::size_t nth, VStatus::Code status) : CallFault() {
        m_nth = nth;
        m_status = status;
    }
    // It throws what `raise` throws.
    CallFault(std::size_t nth, Raise raise) : CallFault() {
        m_nth = nth;
        m_raise = std::move(raise);
    }

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

    std::size_t m_nth = 0;
    VStatus::Code m_status = VStatus::kSuccess;
    Raise m_raise;
    Operations m_operations;
};

template <typename Operation>
Operations operationsOf(const Operation& operation) {
    const CallFault none;
    operation();
    return none.operations();
}

}  // namespace FaultTests
