#include "tools/check/Case.h"
#include "tools/check/EditedNode.h"
#include "tools/check/Fault.h"
#include "tools/check/Passage.h"
#include "tools/check/Trial.h"

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

void sweep(Trial& trial, const Content& read, const FaultsOf& faultsOf) {
    skipUnlessWatched(trial);
    for (const Type& type : trial.carried()) {
        Passage passage(trial, type);
        passage.carry(read);
        const std::vector<HostCall> calls = callsOfReading(passage);
        for (const Fault& fault : faultsOf(calls.size())) {
            const std::string words = inWords(fault, calls);
            trial.doing("reading " + nameOf(type) + " with " + words);
            AnyValue value;
            const bool result = readWith(fault, passage, value);
            trial.expect(result == value.hasValue(),
                         "false and an empty holder, or true and a value", inWords(result, value));
            trial.doing("writing a value of " + nameOf(type) + " that was read with " + words);
            if (result) passage.mustWrite(value);
            trial.doing("reading and writing " + nameOf(type) + " after a reading with " + words);
            passage.mustWrite(passage.mustRead());
            passage.expectOutput(read);
        }
    }
}

void reading(Trial& trial) { sweep(trial, content(trial, 3), singleFaults); }

void readingPairs(Trial& trial) {
    constexpr std::size_t kMost = 1000;
    sweep(trial, content(trial, 2),
          [&](std::size_t calls) { return pairFaults(calls, kMost, trial.seed()); });
}

void unnoticedReading(Trial& trial) {
    skipUnlessWatched(trial);
    UnnoticedFailures failures;
    const Content read = content(trial, 2);
    for (const Type& type : trial.carried()) {
        Passage passage(trial, type);
        passage.carry(read);
        const std::vector<HostCall> calls = callsOfReading(passage);
        for (const Fault& fault : singleFaults(calls.size())) {
            trial.doing("reading " + nameOf(type) + " with " + inWords(fault, calls));
            AnyValue value;
            const ShownMessages messages;
            const bool isSilent = readWith(fault, passage, value) && messages.all().empty();
            const bool isOther =
                isSilent && (!passage.write(value) || !passage.differenceOfOutput(read).empty());
            failures.count(calls[fault.first], Passage::kInput, type, isOther);
        }
    }
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
