// Repeats host calls on another node of the same shape, call by call, and so learns what each gives
// and how long it takes: who watches the calls of a host is told of them before they are made, and
// not of their ends.
#pragma once

#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VPlug.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace Tolvane::Tools {

struct ObservedCall {
    // Class and member, such as "VPlug::child".
    std::string operation;
    // Without the name of the node, "in.names[3]" for a plug and "in.names[]" for data, which is
    // not told from that of another element.
    std::string subject;
    // A child index, logical index or position, or -1.
    long long index = -1;
    std::string argument;
};

class HostMirror {
public:
    struct Answer {
        // As text; empty if the call gives nothing.
        std::string result;
        // Of the call alone.
        std::chrono::nanoseconds duration;
    };

    // `node` has the same ports as the node whose calls are repeated, and the same data.
    explicit HostMirror(const VObject& node);

    // Nothing for a call that cannot be repeated, such as one that shows a message.
    std::optional<Answer> repeat(const ObservedCall& call);
    // Notes that a call was not carried out.
    void fail(const ObservedCall& call);

    // What the calls below need, by the texts that calls are told with. Of handles, those that came
    // last of these texts: it is them that are used.
    VPlug plug(const std::string& name);
    VDataHandle& handle(const std::string& place) { return m_handles[place]; }
    VArrayDataHandle& array(const std::string& place);
    VArrayDataBuilder& builder(const std::string& place) { return m_builders[place]; }
    VDataBlock& data() noexcept { return m_data; }
    VObject attribute(const std::string& name) const;
    const VObject& node() const noexcept { return m_node; }

    // Calls `work`, returns what it does, and measures how long that takes.
    template <typename Work>
    decltype(auto) timed(const Work& work) {
        const Timer timer(m_duration);
        return work();
    }

private:
    using Clock = std::chrono::steady_clock;

    class Timer {
    public:
        explicit Timer(std::chrono::nanoseconds& duration)
            : m_duration(duration), m_begin(Clock::now()) {}
        Timer(const Timer&) = delete;
        Timer& operator=(const Timer&) = delete;
        ~Timer() { m_duration = Clock::now() - m_begin; }

    private:
        std::chrono::nanoseconds& m_duration;
        Clock::time_point m_begin;
    };

    VPlug findPlug(const std::string& name) const;

    VObject m_node;
    VDataBlock m_data;
    std::chrono::nanoseconds m_duration{};
    // What `timed` measures where nothing is done.
    std::chrono::nanoseconds m_overhead{};
    std::map<std::string, VPlug> m_plugs;
    std::map<std::string, VDataHandle> m_handles;
    std::map<std::string, VArrayDataHandle> m_arrays;
    std::map<std::string, VArrayDataBuilder> m_builders;
};

// "in.names[]" for the plug "in.names[3]".
std::string placeOf(std::string_view plug);

}  // namespace Tolvane::Tools
