// Watches the host calls that a library makes, and makes them fail.
#pragma once

#include "tools/check/Trial.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Tolvane::Tools {

// Skips the case if the host was built without a way to watch its calls.
void skipUnlessWatched(Trial& trial);

struct HostCall {
    // Class and member, such as "VPlug::child".
    std::string_view operation;
    // What it is made on, such as "in.names[]": without the name of the node, and without indices.
    // Empty for a call on nothing.
    std::string subject;

    // "VPlug::child on in.names"
    std::string inWords() const;
};

// While it lives, the calls that this thread makes of the host are watched. Those by which a
// message is made and shown to the user are left alone and not counted: nobody could tell of a
// failure there.
class WatchedHost {
public:
    // Whether a call fails, told from its number, counted from 0, and its operation.
    using Fails = std::function<bool(std::size_t number, std::string_view operation)>;

    // No call fails.
    WatchedHost();
    explicit WatchedHost(Fails fails);
    WatchedHost(const WatchedHost&) = delete;
    WatchedHost& operator=(const WatchedHost&) = delete;
    ~WatchedHost();

    std::size_t count() const noexcept;

private:
    class Observer;
    std::unique_ptr<Observer> m_observer;
};

// The calls that `work` makes, in order.
std::vector<HostCall> callsOf(const std::function<void()>& work);

}  // namespace Tolvane::Tools
