#include "tools/check/Case.h"
#include "tools/check/EditedNode.h"
#include "tools/check/Fault.h"
#include "tools/check/Passage.h"
#include "tools/check/Trial.h"
#include "tools/check/Usage.h"
#include "tools/support/OneLine.h"

#include <Pelmor/Library.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Tolvane::Tools {
namespace {

using Direction = EditedNode::Direction;
using Pelmor::AnyValue;
using Pelmor::Type;

// Of one type, each call of a reading, of writings and of ports' creations fails once, and once
// together with the next, which is one of cleaning up where a library has any.
class EveryFailure {
public:
    EveryFailure(Trial& trial, const Type& type) : m_trial(trial), m_type(type) {
        skipUnlessWatched(trial);
    }

    // Calls `around(work)`, which calls `work` in its turn.
    template <typename Around>
    void run(const Around& around) {
        read(around);
        for (const std::size_t host : {1U, 0U, 2U}) write(host, around);
        for (const Direction direction : kBothDirections) add(direction, around);
    }

private:
    template <typename Around>
    void read(const Around& around) {
        Passage passage(m_trial, m_type);
        passage.fillInput(content(1));
        each("reading " + nameOf(m_type), around, [&] {
            AnyValue value;
            passage.read(value);
        });
    }

    // Over as many elements in the host's arrays, one in the graph's.
    template <typename Around>
    void write(std::size_t host, const Around& around) {
        Passage passage(m_trial, m_type);
        const AnyValue value = passage.fillAndRead(content(1));
        passage.fillOutput(content(host));
        const auto former = [&] { passage.fillOutput(content(host)); };
        each(
            "writing " + nameOf(m_type), around, [&] { passage.write(value); }, former);
    }

    template <typename Around>
    void add(Direction direction, const Around& around) {
        EditedNode undisturbed(m_trial);
        const auto calls = callsOf([&] { undisturbed.add(kPort, direction, m_type); });
        for (const Fault& fault : faultsOf(calls)) {
            EditedNode node(m_trial);
            node.fail(fault.fails(), ", with " + inWords(fault, calls));
            around([&] { node.add(kPort, direction, m_type); });
        }
    }

    std::vector<Fault> faultsOf(const std::vector<HostCall>& calls) {
        std::vector<Fault> faults = singleFaults(calls.size());
        for (std::size_t i = 1; i < calls.size(); ++i) faults.push_back({i - 1, i});
        return affordable(m_trial, std::move(faults), calls.size(), m_type);
    }

    template <typename Around>
    void each(
        const std::string& what, const Around& around, const std::function<void()>& work,
        const std::function<void()>& before = [] {}) {
        const auto calls = callsOf(work);
        for (const Fault& fault : faultsOf(calls)) {
            before();
            m_trial.doing(what + " with " + inWords(fault, calls));
            around([&] {
                const WatchedHost host(fault.fails());
                work();
            });
        }
    }

    Content content(std::size_t elements) const {
        Content result;
        result.seed = m_trial.seed();
        result.elements = elements;
        return result;
    }

    Trial& m_trial;
    const Type& m_type;
};

// "^1s" where an argument was to stand.
bool hasPlaceholder(const std::string& message) {
    for (char digit = '1'; digit <= '9'; ++digit)
        if (message.find(std::string("^") + digit + "s") != std::string::npos) return true;
    return false;
}

void expectWhole(Trial& trial, const std::vector<std::string>& messages) {
    std::set<std::string> seen;
    for (const std::string& message : messages) {
        const std::string line = oneLine(message);
        trial.expect(!line.empty(), "a message that says something, or none", "an empty one");
        trial.expect(!hasPlaceholder(line), "a whole message",
                     "one with a placeholder: " + inQuotes(line));
        if (!seen.insert(line).second)
            trial.warn("one failure shows a message more than once: " + inQuotes(line));
    }
}

void messages(Trial& trial) {
    std::map<std::string, std::size_t> shown;
    const auto around = [&](const auto& work) {
        const ShownMessages all;
        work();
        expectWhole(trial, all.all());
        for (const std::string& message : all.all()) ++shown[oneLine(message)];
    };
    trial.forEachCarried([&](const Type& type) {
        EditedNode node(trial);
        node.addForSure(kPort, Direction::Input, type);
        around([&] { node.add(kPort, Direction::Input, type); });
        const Type arrays = Pelmor::Library::arrayOf(Pelmor::Library::arrayOf(type));
        around([&] { node.add("another", Direction::Input, arrays); });
        EveryFailure(trial, type).run(around);
    });
    for (const auto& [message, times] : shown)
        trial.note("shown " + std::to_string(times) + (times == 1 ? " time: " : " times: ") +
                   inQuotes(message));
}

void noLeak(Trial& trial) {
    // What the library has to say would be kept by whoever captures what is printed.
    const VErrorListener nobody([](const VString&) {});
    trial.forEachCarried([&](const Type& type) {
        const std::ptrdiff_t growth =
            growthOf([&] { EveryFailure(trial, type).run([](const auto& work) { work(); }); });
        trial.doing("reading and writing " + nameOf(type) +
                    " and adding ports of it, each time with a failure of another call");
        trial.expect(growth < static_cast<std::ptrdiff_t>(sizeof(void*)),
                     "no more memory after each further round",
                     std::to_string(growth) + " bytes more");
    });
}

}  // namespace

std::vector<Case> failingHostCases() {
    return {
        {"failing-hosts/messages",
         "An empty message, or one that comes twice, tells people less than none.", messages},
        {"failing-hosts/no-leak",
         "A host that fails does so in every frame, and what is left behind each time adds up.",
         noLeak},
    };
}

}  // namespace Tolvane::Tools
