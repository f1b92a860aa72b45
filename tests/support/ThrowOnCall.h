// Throws from the n-th call of a host operation: it stands for whatever may throw while the host is
// being read or written.
#pragma once

#include <OpenVornik/Testing/CallObserver.h>

#include <string_view>

namespace TestSupport {

struct Thrown {};

class ThrowOnCall : public OpenVornik::Testing::CallObserver {
public:
    explicit ThrowOnCall(std::string_view operation, unsigned nth = 1)
        : m_operation(operation), m_callsToGo(nth) {}

private:
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        if (call.operation == m_operation && --m_callsToGo == 0) throw Thrown();
        return VStatus::kSuccess;
    }

    std::string_view m_operation;
    unsigned m_callsToGo;
};

}  // namespace TestSupport
