#include "tools/check/Case.h"
#include "tools/check/EditedNode.h"
#include "tools/check/Fault.h"
#include "tools/check/Passage.h"
#include "tools/check/Trial.h"
#include "tools/node/GenerateData.h"
#include "tools/support/OneLine.h"

#include <functional>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

using Pelmor::AnyValue;
using Pelmor::Type;
using FaultsOf = std::function<std::vector<Fault>(std::size_t calls)>;

Content content(const Trial& trial, std::size_t elements) {
    Content result;
    result.seed = trial.seed();
    result.elements = elements;
    return result;
}

std::vector<HostCall> callsOfReading(Passage& passage) {
    AnyValue value;
    return callsOf([&] { passage.read(value); });
}

bool readWith(const Fault& fault, Passage& passage, AnyValue& value) {
    const WatchedHost host(fault.fails());
    return passage.read(value);
}

const char* inWords(bool result, const AnyValue& value) {
    if (result) return value.hasValue() ? "true and a value" : "true and an empty holder";
    return value.hasValue() ? "false and a value" : "false and an empty holder";
}

// The data of an earlier evaluation.
Content former(const Trial& trial, std::size_t elements) {
    Content result = content(trial, elements);
    result.seed = seedOf(trial.seed(), 1);
    return result;
}

// Reads with a fault into an empty holder, and into one that holds an earlier value.
class FailingReading {
public:
    FailingReading(Trial& trial, const Type& type, const Content& read)
        : m_trial(trial),
          m_read(read),
          m_former(former(trial, read.elements)),
          m_passage(trial, type),
          m_beside(trial, type),
          m_formerValue(m_passage.fillAndRead(m_former)) {
        m_passage.carry(read);
        m_calls = callsOfReading(m_passage);
    }

    Passage& passage() noexcept { return m_passage; }
    const std::vector<HostCall>& calls() const noexcept { return m_calls; }

    void expectAllOrNothing(const Fault& fault) {
        const std::string name = nameOf(m_passage.type());
        const std::string words = inWords(fault, m_calls);
        m_trial.doing("reading " + name + " with " + words);
        AnyValue value;
        const bool result = readWith(fault, m_passage, value);
        m_trial.expect(result == value.hasValue(), "false and an empty holder, or true and a value",
                       inWords(result, value));
        m_trial.doing("writing a value of " + name + " that was read with " + words);
        if (result) m_beside.mustWrite(value);
        expectNoMixture(fault, result);
        m_trial.doing("reading and writing " + name + " after a reading with " + words);
        m_passage.mustWrite(m_passage.mustRead());
        m_passage.expectOutput(m_read);
    }

    // Whether it says that it has a value, which is of other data, and nobody is told.
    bool isUnnoticed(const Fault& fault, bool isHolderEmpty) {
        m_trial.doing("reading " + nameOf(m_passage.type()) + into(isHolderEmpty) + " with " +
                      inWords(fault, m_calls));
        AnyValue value = isHolderEmpty ? AnyValue() : m_formerValue;
        const ShownMessages messages;
        return readWith(fault, m_passage, value) && messages.all().empty() &&
               (!m_passage.write(value) || !m_passage.differenceOfOutput(m_read).empty());
    }

private:
    static const char* into(bool isHolderEmpty) {
        return isHolderEmpty ? "" : " into a holder of an earlier value";
    }

    // What the former value leaves is all of it or nothing. `isWritten` if a reading into an empty
    // holder gave a value, which was written beside.
    void expectNoMixture(const Fault& fault, bool isWritten) {
        m_trial.doing("reading " + nameOf(m_passage.type()) + into(false) + " with " +
                      inWords(fault, m_calls));
        AnyValue value = m_formerValue;
        const bool result = readWith(fault, m_passage, value);
        m_trial.expect(!result || value.hasValue(), "a value with true", inWords(result, value));
        if (!value.hasValue()) return;
        if (!result) m_trial.warn("a reading that fails leaves the former value in the holder");
        m_passage.mustWrite(value);
        const bool isAsOfEmpty =
            isWritten && firstDifference(m_beside.output(), m_passage.output()).empty();
        if (isAsOfEmpty || m_passage.differenceOfOutput(m_former).empty()) return;
        const std::string difference = m_passage.differenceOfOutput(m_read);
        m_trial.expect(
            difference.empty(),
            "an empty holder, the value of a reading into an empty one, or a whole value",
            "parts of the former value: " + oneLine(difference));
    }

    Trial& m_trial;
    Content m_read;
    Content m_former;
    Passage m_passage;
    // Takes what is written of readings into empty holders.
    Passage m_beside;
    AnyValue m_formerValue;
    std::vector<HostCall> m_calls;
};

// Calls `work(reading, fault)` for each fault of a reading of each type.
template <typename Work>
void sweep(Trial& trial, const Content& read, const FaultsOf& faultsOf, const Work& work) {
    skipUnlessWatched(trial);
    trial.forEachCarried([&](const Type& type) {
        FailingReading reading(trial, type, read);
        const std::size_t calls = reading.calls().size();
        for (const Fault& fault : affordable(trial, faultsOf(calls), calls, type))
            work(reading, fault);
    });
}

void expectAllOrNothing(FailingReading& reading, const Fault& fault) {
    reading.expectAllOrNothing(fault);
}

void reading(Trial& trial) { sweep(trial, content(trial, 2), singleFaults, expectAllOrNothing); }

void readingPairs(Trial& trial) {
    constexpr std::size_t kMost = 500;
    sweep(
        trial, content(trial, 2),
        [&](std::size_t calls) { return pairFaults(calls, kMost, trial.seed()); },
        expectAllOrNothing);
}

void unnoticedReading(Trial& trial) {
    UnnoticedFailures failures;
    sweep(trial, content(trial, 2), singleFaults, [&](FailingReading& reading, const Fault& fault) {
        const bool isUnnoticed =
            reading.isUnnoticed(fault, true) || reading.isUnnoticed(fault, false);
        failures.count(reading.calls()[fault.first], Passage::kInput, reading.passage().type(),
                       isUnnoticed);
    });
    failures.warn(trial, "gives a value of other data");
}

}  // namespace

std::vector<Case> failingReadCases() {
    return {
        {"failing-hosts/reading",
         "Hosts fail in the middle of an evaluation, and go on; a half value would too.", reading},
        {"failing-hosts/reading-pairs", "What fails once mostly fails again at once.",
         readingPairs},
        {"failing-hosts/unnoticed-reading",
         "Where a failure goes unnoticed, a character moves wrongly and nobody knows why.",
         unnoticedReading},
    };
}

}  // namespace Tolvane::Tools
