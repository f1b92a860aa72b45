// The calls of the host's interface that one translation makes, in order, and which of them fail.
#pragma once

#include <string_view>
#include <utility>
#include <vector>

namespace Model {

struct Call {
    std::string_view operation;
    // The child index or logical index that the call was given, or -1.
    long long index;
    bool statusRequested;

    friend bool operator==(const Call& a, const Call& b) noexcept {
        return a.operation == b.operation && a.index == b.index &&
               a.statusRequested == b.statusRequested;
    }
};

// The call of `operation` that is the `nth`, counted from 1, fails with `status`, which is not 0.
struct Failure {
    std::string_view operation;
    unsigned nth;
    int status;
};

class CallLog {
public:
    explicit CallLog(std::vector<Failure> failures) : m_failures(std::move(failures)) {}

    // 0 where the call is to succeed, else its status.
    int add(const Call& call) {
        m_calls.push_back(call);
        int status = 0;
        for (Failure& failure : m_failures) {
            if (failure.nth == 0 || failure.operation != call.operation) continue;
            if (--failure.nth == 0) status = failure.status;
        }
        if (status != 0) m_failed.push_back(call.operation);
        return status;
    }

    std::vector<Call> takeCalls() noexcept { return std::move(m_calls); }
    const std::vector<std::string_view>& failed() const noexcept { return m_failed; }

private:
    std::vector<Failure> m_failures;
    std::vector<Call> m_calls;
    std::vector<std::string_view> m_failed;
};

}  // namespace Model
