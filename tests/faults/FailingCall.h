// Makes one call of the host fail and notes which operations were called.
#pragma once

#include "tests/faults/PlannedCalls.h"

#include <OpenVornik/Testing/CallObserver.h>
#include <OpenVornik/VStatus.h>

#include <functional>
#include <string_view>
#include <utility>

namespace FaultTests {

class FailingCall : public OpenVornik::Testing::CallObserver {
public:
    // None fails.
    FailingCall() = default;
    // The one of a plan fails, with one failing status or another.
    FailingCall(const PlannedCalls& plan, std::size_t index)
        : m_operation(plan[index].operation),
          m_callsToGo(occurrenceOf(plan, index)),
          m_code(static_cast<VStatus::Code>(VStatus::kFailure + index % 3)) {}

    // `look` is called before each call of `operation`; what it does is not noted.
    void lookBefore(std::string_view operation, std::function<void()> look) {
        m_lookBefore = operation;
        m_look = std::move(look);
    }

    const Operations& operations() const noexcept { return m_operations; }

private:
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        m_operations.push_back(call.operation);
        if (call.operation == m_lookBefore) m_look();
        if (call.operation != m_operation || m_callsToGo == 0) return VStatus::kSuccess;
        return --m_callsToGo == 0 ? m_code : VStatus::kSuccess;
    }

    std::string_view m_operation;
    unsigned m_callsToGo = 0;
    VStatus::Code m_code = VStatus::kSuccess;
    std::string_view m_lookBefore;
    std::function<void()> m_look;
    Operations m_operations;
};

}  // namespace FaultTests
