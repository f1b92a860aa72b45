// Repeats host calls on another node of the same shape, call by call or all in a row, and so learns
// what each gives and how long they take: who watches the calls of a host is told of them before
// they are made, and not of their ends.
#pragma once

#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDataBlock.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VObject.h>
#include <OpenVornik/VPlug.h>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

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
        // Of the call by itself, which is more than in a row with others.
        std::chrono::nanoseconds duration;
    };

    // A call that is ready to be repeated. `Tell` gives as text what the call gave; the others give
    // none, and `Nothing` only takes the time that it takes to come to the call.
    enum class Do { Call, Tell, Nothing };
    using Step = std::function<std::string(Do)>;

    // `node` has the same ports as the node whose calls are repeated, and the same data.
    explicit HostMirror(const VObject& node);

    // Nothing for a call that cannot be repeated, such as one that shows a message.
    std::optional<Answer> repeat(const ObservedCall& call);
    // Calls are repeated in their order, each once, while the mirror lasts. An empty step for one
    // that cannot be.
    Step prepare(const ObservedCall& call);
    // Repeats them all, one right behind the other.
    static std::chrono::nanoseconds durationOf(const std::vector<Step>& steps);
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

private:
    VPlug findPlug(const std::string& name) const;

    VObject m_node;
    VDataBlock m_data;
    // What is measured where nothing is done.
    std::chrono::nanoseconds m_overhead;
    std::map<std::string, VPlug> m_plugs;
    std::map<std::string, VDataHandle> m_handles;
    std::map<std::string, VArrayDataHandle> m_arrays;
    std::map<std::string, VArrayDataBuilder> m_builders;
};

// "in.names[]" for the plug "in.names[3]".
std::string placeOf(std::string_view plug);

}  // namespace Tolvane::Tools
