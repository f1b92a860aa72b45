// An observer that writes down what it is told, and answers with a failure where it is asked to.
#pragma once

#include <OpenVornik/Testing/CallObserver.h>

#include <string>
#include <string_view>
#include <vector>

class RecordingObserver : public OpenVornik::Testing::CallObserver {
public:
    using Call = OpenVornik::Testing::Call;

    RecordingObserver() = default;
    // Fails every call of `operation`.
    explicit RecordingObserver(std::string_view operation, VStatus::Code answer = VStatus::kFailure)
        : m_failing(operation), m_answer(answer) {}

    VStatus::Code called(const Call& call) override {
        calls.push_back(call);
        return call.operation == m_failing ? m_answer : VStatus::kSuccess;
    }

    std::vector<std::string> operations() const {
        std::vector<std::string> names;
        for (const Call& call : calls) names.emplace_back(call.operation);
        return names;
    }

    std::vector<Call> calls;

private:
    std::string_view m_failing;
    VStatus::Code m_answer = VStatus::kSuccess;
};
