#include "tools/check/Case.h"
#include "tools/check/EditedNode.h"
#include "tools/check/Fault.h"
#include "tools/check/Passage.h"
#include "tools/check/Trial.h"
#include "tools/node/GenerateData.h"

#include <functional>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

using Pelmor::AnyValue;
using Pelmor::Type;
using FaultsOf = std::function<std::vector<Fault>(std::size_t calls)>;

// How many elements the host's arrays have, and how many the graph's: writing takes other calls
// where the host's arrays have to grow, to shrink, or to stay as long as they are.
struct Lengths {
    std::size_t host;
    std::size_t graph;
};
using AllLengths = std::vector<Lengths>;
const AllLengths kLengths{{2, 2}, {1, 3}, {3, 1}};
// Takes less time, and the same kinds of calls.
const AllLengths kShortLengths{{1, 1}, {1, 2}, {2, 1}};

// A value to be written over other data, again and again.
class Writing {
public:
    Writing(Trial& trial, const Type& type, Lengths lengths)
        : m_trial(trial), m_lengths(lengths), m_passage(trial, type) {
        m_written.seed = trial.seed();
        m_written.elements = lengths.graph;
        m_former.seed = seedOf(trial.seed(), 1);
        m_former.elements = lengths.host;
        m_value = m_passage.fillAndRead(m_written);
        m_passage.fillOutput(m_former);
        m_calls = callsOf([&] { m_passage.write(m_value); });
    }

    Passage& passage() noexcept { return m_passage; }
    const std::vector<HostCall>& calls() const noexcept { return m_calls; }
    std::string inWords() const {
        return nameOf(m_passage.type()) + " with " + std::to_string(m_lengths.graph) +
               " elements in its arrays over " + std::to_string(m_lengths.host);
    }
    std::string inWords(const Fault& fault) const {
        return inWords() + ", with " + Tools::inWords(fault, m_calls);
    }
    bool isRight() { return m_passage.differenceOfOutput(m_written).empty(); }

    bool write(const Fault& fault) {
        m_passage.fillOutput(m_former);
        m_trial.doing("writing " + inWords(fault));
        const WatchedHost host(fault.fails());
        return m_passage.write(m_value);
    }
    void writeRightly(const Fault& formerFault) {
        m_trial.doing("writing once more after writing " + inWords(formerFault));
        m_passage.mustWrite(m_value);
        m_passage.expectOutput(m_written);
        m_trial.expect(m_passage.isOutputClean(), "that the output is clean", "it is dirty");
    }

private:
    Trial& m_trial;
    Lengths m_lengths;
    Passage m_passage;
    Content m_written;
    Content m_former;
    AnyValue m_value;
    std::vector<HostCall> m_calls;
};

// Calls `work(writing, fault)` for each fault of each way to write each type.
template <typename Work>
void sweep(Trial& trial, const AllLengths& allLengths, const FaultsOf& faultsOf, const Work& work) {
    skipUnlessWatched(trial);
    trial.forEachCarried([&](const Type& type) {
        for (const Lengths& lengths : allLengths) {
            Writing writing(trial, type, lengths);
            const std::size_t calls = writing.calls().size();
            for (const Fault& fault : affordable(trial, faultsOf(calls), calls, type))
                work(writing, fault);
        }
    });
}

void writeAndWriteAgain(Writing& writing, const Fault& fault) {
    writing.write(fault);
    writing.writeRightly(fault);
}

void writing(Trial& trial) { sweep(trial, kLengths, singleFaults, writeAndWriteAgain); }

void writingPairs(Trial& trial) {
    constexpr std::size_t kMost = 500;
    sweep(
        trial, kShortLengths,
        [&](std::size_t calls) { return pairFaults(calls, kMost, trial.seed()); },
        writeAndWriteAgain);
}

void unnoticedWriting(Trial& trial) {
    UnnoticedFailures failures;
    sweep(trial, kShortLengths, singleFaults, [&](Writing& writing, const Fault& fault) {
        const ShownMessages messages;
        const bool isSilent = writing.write(fault) && messages.all().empty();
        failures.count(writing.calls()[fault.first], Passage::kOutput, writing.passage().type(),
                       isSilent && !writing.isRight());
    });
    failures.warn(trial, "leaves other data in the host");
}

void expectDirty(Trial& trial, const Passage& passage) {
    trial.expect(!passage.isOutputClean(), "that the output is dirty", "it is clean");
}

void dirtyAfterFailure(Trial& trial) {
    trial.forEachCarried([&](const Type& type) {
        Passage passage(trial, type);
        trial.doing("writing an empty holder to a port of " + nameOf(type));
        if (!passage.write(AnyValue())) expectDirty(trial, passage);
    });
    skipUnlessWatched(trial);
    sweep(trial, kShortLengths, singleFaults, [&](Writing& writing, const Fault& fault) {
        const ShownMessages messages;
        const bool result = writing.write(fault);
        // False and a message may also tell of a failure that came when all was written.
        const bool isNoticed = !result || !messages.all().empty();
        if (isNoticed && !writing.isRight()) expectDirty(trial, writing.passage());
    });
}

}  // namespace

std::vector<Case> failingWriteCases() {
    return {
        {"failing-hosts/writing",
         "Hosts fail in the middle of an evaluation, and the next one has to be right again.",
         writing},
        {"failing-hosts/writing-pairs", "What fails once mostly fails again at once.",
         writingPairs},
        {"failing-hosts/unnoticed-writing",
         "Where a failure goes unnoticed, a character moves wrongly and nobody knows why.",
         unnoticedWriting},
        {"failing-hosts/dirty-after-failure",
         "The host does not evaluate again what is clean, and keeps showing half a value.",
         dirtyAfterFailure},
    };
}

}  // namespace Tolvane::Tools
