#include "tools/check/Case.h"
#include "tools/check/ElfFile.h"
#include "tools/check/Passage.h"
#include "tools/check/Together.h"
#include "tools/check/Trial.h"
#include "tools/node/GenerateData.h"
#include "tools/process/Child.h"
#include "tools/process/Interruption.h"
#include "tools/support/Error.h"
#include "tools/support/OneLine.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Tolvane::Tools {
namespace {

// In this process the library has not been used, if it has told its types in another one.
std::vector<Pelmor::Type> carriedWithoutUse(Trial& trial) {
    std::vector<Pelmor::Type> types;
    for (const Survey::Carried& each : trial.survey().carried)
        types.push_back(trial.types().getType(each.name.c_str()));
    return types.empty() ? trial.carried() : types;
}

using Nodes = std::vector<std::unique_ptr<Passage>>;

// Each has data of its own, and more elements than the one before.
Content contentOf(const Trial& trial, std::size_t node) {
    Content content;
    content.seed = seedOf(trial.seed(), node);
    content.elements = 2 + node;
    return content;
}

Nodes nodesOf(Trial& trial, const Pelmor::Type& type, std::size_t count) {
    trial.doing("adding ports of " + nameOf(type));
    Nodes nodes;
    for (std::size_t i = 0; i < count; ++i) {
        nodes.push_back(std::make_unique<Passage>(trial, type));
        nodes.back()->fillInput(contentOf(trial, i));
    }
    return nodes;
}

void carry(const Trial& trial, Passage& node, std::size_t number) {
    node.mustWrite(node.mustRead());
    node.expectOutput(contentOf(trial, number));
}

void firstUse(Trial& trial) {
    trial.forEach(carriedWithoutUse(trial), [&](const Pelmor::Type& type) {
        const Nodes nodes = nodesOf(trial, type, kThreads);
        trial.doing("reading and writing " + nameOf(type) +
                    " for the first time, on eight threads at once");
        runTogether(kThreads, [&](std::size_t i) { carry(trial, *nodes[i], i); });
    });
}

void twoNodes(Trial& trial) {
    constexpr int kTimes = 200;
    trial.forEachCarried([&](const Pelmor::Type& type) {
        const Nodes nodes = nodesOf(trial, type, 2);
        // What comes of a first use is another case.
        trial.doing("reading and writing " + nameOf(type));
        carry(trial, *nodes[0], 0);
        trial.doing("reading and writing " + nameOf(type) +
                    " of two nodes on two threads, 200 times");
        runTogether(2, [&](std::size_t i) {
            for (int time = 0; time < kTimes; ++time) carry(trial, *nodes[i], i);
        });
    });
}

bool wantsThreadSanitizer(Trial& trial) {
    try {
        const std::vector<std::string> wanted = readElf(trial.path()).wanted;
        return std::any_of(wanted.begin(), wanted.end(),
                           [](const std::string& name) { return name.rfind("__tsan_", 0) == 0; });
    } catch (const Error&) {
        trial.skip("the library cannot be loaded");
    }
}

// What a report ends with, such as "data race Read.h:17 in read".
std::string summaryOf(const std::string& report) {
    constexpr std::string_view kSummary = "SUMMARY: ThreadSanitizer: ";
    const std::size_t found = report.find(kSummary);
    if (found == std::string::npos) return oneLine(report);
    const std::size_t begin = found + kSummary.size();
    return oneLine(report.substr(begin, report.find('\n', begin) - begin));
}

// A process that the sanitizer has something to report of ends with a status of the sanitizer's
// own, without an answer. So that is another one, and says at what it is in place of an answer.
void underSanitizer(Trial& trial) {
    if (!wantsThreadSanitizer(trial)) trial.skip("it was not built with ThreadSanitizer");
    trial.skipUnlessLoadable();
    const auto work = [&trial](ChildSide& self) {
        const auto noteReport = [&self] {
            self.noticePrints();
            if (self.firstPrint()) self.atPort(summaryOf(self.firstPrint()->text));
        };
        firstUse(trial);
        noteReport();
        twoNodes(trial);
        noteReport();
        return std::string();
    };
    const auto goOn = [&] { trial.doing("reading and writing on several threads at once"); };
    const InterruptionGuard guard;
    const Outcome outcome = runInChild(work, trial.limits(), [&](const Child&) { goOn(); });
    if (outcome.end == Outcome::End::Threw)
        trial.skip("it does not carry values on several threads, which other cases tell");
    goOn();
    if (outcome.end != Outcome::End::Answered)
        trial.fail("no report of ThreadSanitizer", outcome.place.port.empty()
                                                       ? "it " + inWords(outcome)
                                                       : "a report: " + outcome.place.port);
}

}  // namespace

std::vector<Case> threadCases() {
    return {
        {"threads/first-use",
         "A host that evaluates nodes in parallel uses a library for the first time on all of its"
         " threads.",
         firstUse},
        {"threads/two-nodes",
         "Nodes that are evaluated at the same time must not get each other's values.", twoNodes},
        {"threads/sanitizer",
         "A race between threads may show once in a thousand evaluations, and then in production.",
         underSanitizer},
    };
}

}  // namespace Tolvane::Tools
