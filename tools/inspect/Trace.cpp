#include "tools/inspect/Trace.h"

#include "tools/inspect/TypedNode.h"
#include "tools/node/WatchedTranslation.h"
#include "tools/support/Error.h"

#include <OpenVornik/VErrorListener.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string_view>
#include <tuple>
#include <utility>

#ifdef TOLVANE_OBSERVATION
#include <OpenVornik/Testing/CallObserver.h>
#endif

namespace Tolvane::Tools {
namespace {

using Clock = std::chrono::steady_clock;
using Trace = std::vector<TracedTranslation>;
using Nodes = std::vector<std::unique_ptr<TypedNode>>;
using Durations = std::vector<std::chrono::nanoseconds>;

constexpr std::size_t kTimes = 9;
// What is over soon is measured more often, for it is disturbed more.
constexpr std::size_t kFewCalls = 5'000;
constexpr std::size_t kTimesOfFew = 99;

std::optional<std::chrono::nanoseconds> median(Durations durations) {
    if (durations.empty()) return std::nullopt;
    const auto middle = durations.begin() + static_cast<std::ptrdiff_t>(durations.size() / 2);
    std::nth_element(durations.begin(), middle, durations.end());
    return *middle;
}

// A node of each type, with data in its input. Values are carried by the library alone, for
// whoever watched would be in the times, and in the calls.
Nodes nodesOf(const TracedLibrary& library, const std::vector<Pelmor::Type>& types,
              const FillPort& fill) {
    const WatchedTranslation watched(library.translation, library.process);
    Nodes nodes;
    for (const Pelmor::Type& type : types) {
        nodes.push_back(std::make_unique<TypedNode>(watched, library.translation, type));
        nodes.back()->requirePorts(library.path);
        library.process.enter(Stage::Usage);
        fill(nodes.back()->inputPlace());
    }
    return nodes;
}

void noteEvaluation(ChildSide& process, const TraceOptions& options, bool isInput) {
    process.enter(Stage::Evaluating);
    if (options.frame) process.atFrame(*options.frame);
    process.atPort(isInput ? "in" : "out");
}

// Calls `carry(node, isInput, carry it out)` for each value of an evaluation, in order, and has
// the library's process note which it is.
template <typename Carry>
void evaluate(const Nodes& nodes, ChildSide& process, const TraceOptions& options,
              const Carry& carry) {
    const auto carryNoted = [&](std::size_t i, bool isInput, const auto& work) {
        noteEvaluation(process, options, isInput);
        carry(i, isInput, work);
        process.noticePrints();
    };
    std::vector<Pelmor::AnyValue> values(nodes.size());
    for (std::size_t i = 0; i < nodes.size(); ++i)
        carryNoted(i, true, [&] {
            const bool wasRead = nodes[i]->read(values[i]);
            return std::pair(wasRead, values[i].hasValue());
        });
    for (std::size_t i = 0; i < nodes.size(); ++i)
        carryNoted(i, false, [&] {
            const bool hasValue = values[i].hasValue();
            return std::pair(nodes[i]->write(values[i]), hasValue);
        });
}

#ifdef TOLVANE_OBSERVATION

std::size_t depthOf(const std::string& subject) {
    return static_cast<std::size_t>(
        std::count_if(subject.begin(), subject.end(),
                      [](char character) { return character == '.' || character == '['; }));
}

std::string withoutNode(const char* text) {
    constexpr std::string_view kNode = "node.";
    const std::string_view whole = text;
    return std::string(whole.substr(0, kNode.size()) == kNode ? whole.substr(kNode.size()) : whole);
}

class Tracer : public OpenVornik::Testing::CallObserver {
public:
    // The call of this number fails, counted from 1. `note` says what the library is at.
    Tracer(std::vector<TracedCall>& calls, std::optional<std::size_t> fails, ChildSide& process,
           const std::function<void()>& note)
        : m_calls(calls), m_fails(fails), m_process(process), m_note(note) {}

private:
    VStatus::Code called(const OpenVornik::Testing::Call& told) override {
        // What the list takes is not the library's.
        m_process.enter(Stage::Usage);
        ObservedCall call{std::string(told.operation), withoutNode(told.subject.asChar()),
                          told.index, withoutNode(told.argument.asChar())};
        // What is made of nothing belongs to what came before.
        if (!call.subject.empty() && call.subject != "node") m_depth = depthOf(call.subject);
        TracedCall& traced = m_calls.emplace_back(TracedCall{std::move(call), m_depth});
        traced.wasMadeToFail = m_calls.size() == m_fails;
        m_note();
        return traced.wasMadeToFail ? VStatus::kFailure : VStatus::kSuccess;
    }

    std::vector<TracedCall>& m_calls;
    std::optional<std::size_t> m_fails;
    ChildSide& m_process;
    const std::function<void()>& m_note;
    std::size_t m_depth = 0;
};

#else

class Tracer {
public:
    Tracer(std::vector<TracedCall>&, std::optional<std::size_t>, ChildSide&,
           const std::function<void()>&) {
        throw Error("the host that this program was built with does not let its calls be watched");
    }
};

#endif

// Whoever gets a value of an output to see gets it to be written: the other node shows what was
// there before.
bool givesPlaceToWrite(const TracedTranslation& traced, const ObservedCall& call) {
    constexpr std::string_view kAccessor = "VDataHandle::as";
    return !traced.isInput && call.operation.compare(0, kAccessor.size(), kAccessor) == 0;
}

// What is where a translation has written, each place found by the calls that led to it. They
// change nothing: the elements that they add are there by now. This, like the answers below, is the
// program's own work, and each call a sign of progress.
void addWritten(TracedTranslation& traced, const VObject& node, ChildSide& process) {
    if (traced.isInput || !traced.wasTranslated) return;
    HostMirror mirror(node);
    for (TracedCall& call : traced.calls) {
        process.enter(Stage::Usage);
        const auto answer = mirror.repeat(call.call);
        if (answer && givesPlaceToWrite(traced, call.call)) call.written = answer->result;
    }
}

// Once nobody watches any more, which would take most of the time.
void addAnswers(TracedTranslation& traced, const VObject& twin, ChildSide& process) {
    HostMirror mirror(twin);
    for (TracedCall& call : traced.calls) {
        process.enter(Stage::Usage);
        if (call.wasMadeToFail)
            mirror.fail(call.call);
        else
            call.answer = mirror.repeat(call.call);
        if (call.answer && givesPlaceToWrite(traced, call.call))
            call.answer->result = "a place to write to";
    }
}

Trace traceOnce(const TracedLibrary& library, const std::vector<Pelmor::Type>& types,
                const FillPort& fill, const TraceOptions& options) {
    const Nodes nodes = nodesOf(library, types, fill);
    const Nodes twins = nodesOf(library, types, fill);
    Trace trace;
    std::size_t before = 0;
    evaluate(nodes, library.process, options, [&](std::size_t i, bool isInput, const auto& carry) {
        if (!(isInput ? options.in : options.out)) {
            carry();
            return;
        }
        TracedTranslation& traced = trace.emplace_back();
        traced.typeName = types[i].getFullyQualifiedName().c_str();
        traced.isInput = isInput;
        std::optional<std::size_t> fails;
        if (options.fail && *options.fail > before) fails = *options.fail - before;
        const VErrorListener listener(
            [&](const VString& message) { traced.messages.emplace_back(message.asChar()); });
        {
            const std::function<void()> note = [&] {
                noteEvaluation(library.process, options, isInput);
            };
            const Tracer tracer(traced.calls, fails, library.process, note);
            std::tie(traced.wasTranslated, traced.hasValue) = carry();
        }
        library.process.noticePrints();
        addAnswers(traced, twins[i]->hostNode(), library.process);
        if (!options.fail) addWritten(traced, nodes[i]->hostNode(), library.process);
        before += traced.calls.size();
    });
    return trace;
}

// In the order of the trace.
Durations durationsOnce(const TracedLibrary& library, const std::vector<Pelmor::Type>& types,
                        const FillPort& fill, const TraceOptions& options) {
    const Nodes nodes = nodesOf(library, types, fill);
    // Whoever reads the trace has seen the messages.
    const VErrorListener listener([](const VString&) {});
    Durations durations;
    evaluate(nodes, library.process, options, [&](std::size_t, bool isInput, const auto& carry) {
        const Clock::time_point begin = Clock::now();
        carry();
        const Clock::duration duration = Clock::now() - begin;
        if (isInput ? options.in : options.out) durations.push_back(duration);
    });
    return durations;
}

// Of the calls of each, one right behind the other without the library; nothing where one of them
// cannot be repeated.
std::vector<std::optional<std::chrono::nanoseconds>> durationsOfCallsOnce(
    const TracedLibrary& library, const std::vector<Pelmor::Type>& types, const FillPort& fill,
    const Trace& trace) {
    const Nodes nodes = nodesOf(library, types, fill);
    std::vector<std::optional<std::chrono::nanoseconds>> durations;
    for (const TracedTranslation& traced : trace) {
        // All types on their way in, then all on their way out.
        HostMirror mirror(nodes[durations.size() % nodes.size()]->hostNode());
        std::vector<HostMirror::Step> steps;
        for (const TracedCall& call : traced.calls) {
            library.process.enter(Stage::Usage);
            if (HostMirror::Step step = mirror.prepare(call.call)) steps.push_back(std::move(step));
        }
        durations.emplace_back();
        if (steps.size() == traced.calls.size()) durations.back() = HostMirror::durationOf(steps);
    }
    return durations;
}

// The calls of an evaluation are the same each time, unless the library decides otherwise.
bool haveSameCalls(const Trace& a, const Trace& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const TracedTranslation& x, const TracedTranslation& y) {
                          return x.calls.size() == y.calls.size();
                      });
}

void takeMedians(Trace& trace, const std::vector<Trace>& others) {
    for (std::size_t i = 0; i < trace.size(); ++i)
        for (std::size_t j = 0; j < trace[i].calls.size(); ++j) {
            auto& answer = trace[i].calls[j].answer;
            if (!answer) continue;
            Durations durations{answer->duration};
            for (const Trace& other : others)
                if (const auto& same = other[i].calls[j].answer)
                    durations.push_back(same->duration);
            answer->duration = median(std::move(durations)).value();
        }
}

// Calls that were timed by themselves get their share of what they take together.
void share(std::chrono::nanoseconds whole, TracedTranslation& traced) {
    const auto weightOf = [](const TracedCall& call) {
        return call.answer ? std::max(1.0, static_cast<double>(call.answer->duration.count())) : 0;
    };
    double all = 0, soFar = 0;
    for (const TracedCall& call : traced.calls) all += weightOf(call);
    std::chrono::nanoseconds given{};
    for (TracedCall& call : traced.calls) {
        if (!call.answer) continue;
        soFar += weightOf(call);
        const std::chrono::nanoseconds upTo(
            std::llround(static_cast<double>(whole.count()) * (soFar / all)));
        call.answer->duration = upTo - given;
        given = upTo;
    }
}

void addDurations(std::chrono::nanoseconds whole, std::optional<std::chrono::nanoseconds> ofCalls,
                  TracedTranslation& traced) {
    traced.duration = whole;
    const bool isKnown = ofCalls && ofCalls->count() > 0 && *ofCalls < whole;
    if (isKnown) traced.durationOutside = whole - *ofCalls;
    share(isKnown ? *ofCalls : std::min(traced.durationOfCalls(), whole), traced);
}

}  // namespace

std::chrono::nanoseconds TracedTranslation::durationOfCalls() const {
    std::chrono::nanoseconds sum{};
    for (const TracedCall& call : calls)
        if (call.answer) sum += call.answer->duration;
    return sum;
}

std::vector<TracedTranslation> traceEvaluation(const TracedLibrary& library,
                                               const std::vector<Pelmor::Type>& types,
                                               const FillPort& fill, const TraceOptions& options) {
    // What a library does but once is done in the first.
    durationsOnce(library, types, fill, options);
    Trace trace = traceOnce(library, types, fill, options);
    if (options.fail && *options.fail > callsOf(trace))
        throw Error(Stage::Usage, "",
                    "--fail " + std::to_string(*options.fail) + ": there are only " +
                        std::to_string(callsOf(trace)) + " calls");
    std::vector<Trace> others;
    for (std::size_t time = 0; time < kTimes; ++time) {
        Trace other = traceOnce(library, types, fill, options);
        if (haveSameCalls(trace, other)) others.push_back(std::move(other));
    }
    std::vector<Durations> durations(trace.size()), ofCalls(trace.size());
    const std::size_t times = callsOf(trace) < kFewCalls ? kTimesOfFew : kTimes;
    for (std::size_t time = 0; time < times && !options.fail; ++time) {
        const Durations once = durationsOnce(library, types, fill, options);
        const auto ofCallsOnce = durationsOfCallsOnce(library, types, fill, trace);
        for (std::size_t i = 0; i < trace.size(); ++i) {
            durations[i].push_back(once[i]);
            if (ofCallsOnce[i]) ofCalls[i].push_back(*ofCallsOnce[i]);
        }
    }
    takeMedians(trace, others);
    for (std::size_t i = 0; i < trace.size() && !options.fail; ++i)
        addDurations(median(durations[i]).value(), median(ofCalls[i]), trace[i]);
    return trace;
}

std::size_t callsOf(const std::vector<TracedTranslation>& trace) {
    std::size_t count = 0;
    for (const TracedTranslation& each : trace) count += each.calls.size();
    return count;
}

}  // namespace Tolvane::Tools
