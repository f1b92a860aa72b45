#include "tools/check/WatchedHost.h"

#include <utility>

#ifdef TOLVANE_OBSERVATION
#include <OpenVornik/Testing/CallObserver.h>
#endif

namespace Tolvane::Tools {

std::string HostCall::inWords() const {
    return std::string(operation) + (subject.empty() ? "" : " on " + subject);
}

#ifdef TOLVANE_OBSERVATION

namespace {

// "node.in.names[3]" of a plug, and "in.names[]" of data, are the same place.
std::string withoutIndices(std::string_view subject) {
    constexpr std::string_view kNode = "node.";
    if (subject.substr(0, kNode.size()) == kNode) subject.remove_prefix(kNode.size());
    std::string place;
    bool isIndex = false;
    for (const char character : subject) {
        isIndex = isIndex && character >= '0' && character <= '9';
        if (!isIndex) place += character;
        isIndex = isIndex || character == '[';
    }
    return place;
}

bool tellsTheUser(std::string_view operation) {
    return operation == "VGlobal::displayError" || operation == "VString::format";
}

class Recorder : public OpenVornik::Testing::CallObserver {
public:
    std::vector<HostCall> calls;

private:
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        if (!tellsTheUser(call.operation))
            calls.push_back({call.operation, withoutIndices(call.subject.asChar())});
        return VStatus::kSuccess;
    }
};

}  // namespace

class WatchedHost::Observer : public OpenVornik::Testing::CallObserver {
public:
    explicit Observer(Fails fails) : m_fails(std::move(fails)) {}

    std::size_t count() const noexcept { return m_count; }

private:
    VStatus::Code called(const OpenVornik::Testing::Call& call) override {
        constexpr VStatus::Code kFailures[] = {VStatus::kFailure, VStatus::kInvalidParameter,
                                               VStatus::kNotFound};
        if (tellsTheUser(call.operation)) return VStatus::kSuccess;
        const std::size_t number = m_count++;
        return m_fails && m_fails(number, call.operation) ? kFailures[number % 3]
                                                          : VStatus::kSuccess;
    }

    Fails m_fails;
    std::size_t m_count = 0;
};

WatchedHost::WatchedHost(Fails fails) : m_observer(std::make_unique<Observer>(std::move(fails))) {}

std::size_t WatchedHost::count() const noexcept { return m_observer->count(); }

void skipUnlessWatched(Trial&) {}

std::vector<HostCall> callsOf(const std::function<void()>& work) {
    Recorder recorder;
    work();
    return std::move(recorder.calls);
}

#else

class WatchedHost::Observer {};

WatchedHost::WatchedHost(Fails) {}

std::size_t WatchedHost::count() const noexcept { return 0; }

void skipUnlessWatched(Trial& trial) {
    trial.skip("the host was built without a way to watch its calls");
}

std::vector<HostCall> callsOf(const std::function<void()>& work) {
    work();
    return {};
}

#endif

WatchedHost::WatchedHost() : WatchedHost(Fails()) {}
WatchedHost::~WatchedHost() = default;

}  // namespace Tolvane::Tools
