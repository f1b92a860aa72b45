// Tells whether an operation works on its context or on copies: during a call of the host, before
// it is carried out, the context's block and plug become those of another port.
#pragma once

#include "tests/support/TranslatedPort.h"

#include <OpenVornik/Testing/CallObserver.h>

#include <string_view>
#include <utility>

namespace TranslationTests {

class SwapDuringCall : public OpenVornik::Testing::CallObserver {
public:
    SwapDuringCall(std::string_view operation, TestSupport::TranslatedPort& own,
                   TestSupport::TranslatedPort& other)
        : m_operation(operation), m_own(own), m_other(other) {}

private:
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        if (call.operation == m_operation) {
            std::swap(m_own.block, m_other.block);
            std::swap(m_own.plug, m_other.plug);
        }
        return VStatus::kSuccess;
    }

    std::string_view m_operation;
    TestSupport::TranslatedPort& m_own;
    TestSupport::TranslatedPort& m_other;
};

}  // namespace TranslationTests
