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

    // Such as "VPlug::child walk.rig [2]" and "VFnAttribute::setWritable weight (false)".
    std::vector<std::string> texts() const {
        std::vector<std::string> texts;
        for (const Call& call : calls) {
            std::string text(call.operation);
            if (call.subject != "") text += std::string(" ") + call.subject.asChar();
            if (call.index >= 0) text += " [" + std::to_string(call.index) + "]";
            if (call.argument != "") text += std::string(" (") + call.argument.asChar() + ")";
            texts.push_back(text);
        }
        return texts;
    }

    std::vector<Call> calls;

private:
    std::string_view m_failing;
    VStatus::Code m_answer = VStatus::kSuccess;
};
