// Writes down the calls of the host's interface that its thread makes while it lives, and makes
// chosen ones fail.
#pragma once

#include <OpenVornik/Testing/CallObserver.h>
#include <OpenVornik/VStatus.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace TestSupport {

class CallRecorder : public OpenVornik::Testing::CallObserver {
public:
    using Lines = std::vector<std::string>;

    // One line per call: the operation, then what the call was made on, its index and its other
    // arguments, as far as it has them, and "with status" where one was requested; such as
    // "VPlug::child walk.pins 0" or "VFnAttribute::setArray names true".
    const Lines& lines() const noexcept { return m_lines; }

    // The lines since the last call.
    Lines take() { return std::exchange(m_lines, {}); }

    unsigned count(std::string_view operation) const {
        return static_cast<unsigned>(std::count_if(
            m_lines.begin(), m_lines.end(),
            [&](const std::string& line) { return line.substr(0, line.find(' ')) == operation; }));
    }

    // Makes the call of `operation` fail that is the `nth` from now on, counted from 1.
    void fail(std::string_view operation, unsigned nth = 1,
              VStatus::Code code = VStatus::kFailure) {
        m_failures.push_back({std::string(operation), nth, code});
    }

private:
    struct Failure {
        std::string operation;
        unsigned callsToGo;
        VStatus::Code code;
    };

    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        m_lines.push_back(lineOf(call));
        VStatus::Code answer = VStatus::kSuccess;
        for (Failure& failure : m_failures) {
            if (failure.operation != call.operation || failure.callsToGo == 0) continue;
            if (--failure.callsToGo == 0) answer = failure.code;
        }
        return answer;
    }

    static std::string lineOf(const OpenVornik::Testing::Call& call) {
        std::string line(call.operation);
        if (call.subject.length() > 0) line += ' ' + std::string(call.subject.asChar());
        if (call.index >= 0) line += ' ' + std::to_string(call.index);
        if (call.argument.length() > 0) line += ' ' + std::string(call.argument.asChar());
        if (call.statusRequested) line += " with status";
        return line;
    }

    Lines m_lines;
    std::vector<Failure> m_failures;
};

}  // namespace TestSupport
