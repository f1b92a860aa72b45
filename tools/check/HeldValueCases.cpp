#include "tools/check/Case.h"
#include "tools/check/EditedNode.h"
#include "tools/check/Passage.h"
#include "tools/check/Together.h"
#include "tools/check/Trial.h"
#include "tools/check/Usage.h"
#include "tools/node/GenerateData.h"
#include "tools/support/OneLine.h"

#include <Pelmor/TypeInfo.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Tolvane::Tools {
namespace {

using Pelmor::AnyValue;
using Pelmor::Type;

// Some data, and other data, of the same lengths.
Content some(const Trial& trial) {
    Content content;
    content.seed = trial.seed();
    return content;
}

Content other(const Trial& trial) {
    Content content;
    content.seed = seedOf(trial.seed(), 1);
    return content;
}

void readingsShareNothing(Trial& trial) {
    trial.forEachCarried([&](const Type& type) {
        Passage passage(trial, type);
        const AnyValue first = passage.fillAndRead(some(trial));
        const AnyValue second = passage.fillAndRead(other(trial));
        passage.writeAndCompare(first, some(trial), "the value of the first of two readings");
        passage.writeAndCompare(second, other(trial), "the value of the second of two readings");
    });
}

void heldValueStays(Trial& trial) {
    trial.forEachCarried([&](const Type& type) {
        auto former = std::make_unique<Passage>(trial, type);
        const AnyValue value = former->fillAndRead(some(trial));
        trial.doing("changing the data that " + nameOf(type) + " was read from");
        former->fillInput(other(trial));
        Passage passage(trial, type);
        passage.writeAndCompare(value, some(trial), "a value whose data the host has changed");
        trial.doing("destroying the node that " + nameOf(type) + " was read from");
        former.reset();
        passage.writeAndCompare(value, some(trial), "a value whose node is gone");
    });
}

void holderReplaced(Trial& trial) {
    constexpr int kTimes = 50;
    const auto types = passable(trial);
    for (std::size_t i = 0; i < types.size(); ++i) {
        const Type& otherType = types[(i + 1) % types.size()];
        Passage passage(trial, types[i]);
        Passage otherPassage(trial, otherType);
        passage.fillInput(some(trial));
        otherPassage.fillInput(other(trial));
        const std::string what =
            "reading " + nameOf(types[i]) + " into a holder of " + nameOf(otherType);
        AnyValue value;
        trial.doing(what);
        const auto replace = [&] {
            for (int time = 0; time < kTimes; ++time) {
                trial.expect(otherPassage.read(value) && passage.read(value), "true", "false");
            }
        };
        const std::ptrdiff_t growth = growthOf(replace);
        passage.writeAndCompare(value, some(trial), "a value that replaced another");
        trial.doing(what + " fifty times");
        trial.expect(growth < kTimes * static_cast<std::ptrdiff_t>(sizeof(void*)),
                     "that the former values are freed",
                     std::to_string(growth) + " bytes more each fifty times");
    }
}

// Fails the case if this is not refused, or changes anything.
void expectNotWritten(Trial& trial, Passage& passage, const AnyValue& refused,
                      const std::string& what) {
    passage.carry(some(trial));
    trial.doing("writing " + what + " to a port of " + nameOf(passage.type()));
    trial.expect(!passage.write(refused), "false", "true");
    passage.expectOutput(some(trial));
}

void emptyHolder(Trial& trial) {
    trial.forEachCarried([&](const Type& type) {
        Passage passage(trial, type);
        expectNotWritten(trial, passage, AnyValue(), "an empty holder");
    });
}

struct OfTheCheck {
    std::array<double, 40> numbers{};
};

struct SmallOfTheCheck {
    int number = 1;
};

void foreignValue(Trial& trial) {
    const AnyValue large = AnyValue::holding(OfTheCheck());
    const AnyValue small = AnyValue::holding(SmallOfTheCheck());
    trial.forEachCarried([&](const Type& type) {
        Passage passage(trial, type);
        for (const AnyValue& value : {large, small})
            expectNotWritten(trial, passage, value, "a value of a type that it does not know");
    });
}

// Nothing is rolled back, so what was written up to a failure stays, but not without a word.
void expectNoSilentChange(Trial& trial, Passage& passage, const AnyValue& refused) {
    const ShownMessages messages;
    if (passage.write(refused)) return;
    const std::string change = passage.differenceOfOutput(some(trial));
    const bool isTold = messages.sayAnything() && !passage.isOutputClean();
    trial.expect(change.empty() || isTold,
                 "false and the host's data as it was, or a message and a dirty output",
                 "false, and " + oneLine(change) + (messages.sayAnything() ? "" : ", no message") +
                     (passage.isOutputClean() ? ", a clean output" : ""));
}

void wrongPort(Trial& trial) {
    const auto types = passable(trial);
    if (types.size() == 1) trial.skip("it carries one type alone");
    // Of other data than the port holds, where the types begin with members of one kind.
    std::vector<AnyValue> values;
    values.reserve(types.size());
    for (const Type& type : types) values.push_back(Passage(trial, type).fillAndRead(other(trial)));
    for (std::size_t port = 0; port < types.size(); ++port) {
        Passage passage(trial, types[port]);
        for (std::size_t i = 0; i < types.size(); ++i) {
            if (i == port) continue;
            passage.carry(some(trial));
            trial.doing("writing a value of " + nameOf(types[i]) + " to a port of " +
                        nameOf(types[port]));
            expectNoSilentChange(trial, passage, values[i]);
        }
        passage.carry(some(trial));
    }
}

void cleanAfterSuccess(Trial& trial) {
    trial.forEachCarried([&](const Type& type) {
        Passage passage(trial, type);
        passage.carry(some(trial));
        trial.doing("looking whether the output of " + nameOf(type) + " is clean");
        trial.expect(passage.isOutputClean(), "that it is clean", "it is dirty");
    });
}

void copies(Trial& trial) {
    trial.forEachCarried([&](const Type& type) {
        Passage passage(trial, type);
        AnyValue original = passage.fillAndRead(some(trial));
        trial.doing("copying a value of " + nameOf(type));
        AnyValue copy(original);
        trial.doing("reading another value of " + nameOf(type) + " over one that was copied");
        passage.fillInput(other(trial));
        trial.expect(passage.read(original), "true", "false");
        passage.writeAndCompare(copy, some(trial), "a copy whose original was overwritten");
        const AnyValue second(copy);
        trial.doing("moving a value of " + nameOf(type));
        const AnyValue moved(std::move(copy));
        // A holder promises it.
        // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
        trial.expect(!copy.hasValue(), "an empty holder where it was", "one with a value");
        passage.writeAndCompare(second, some(trial), "a copy whose original was moved");
        passage.writeAndCompare(moved, some(trial), "a value that was moved");
        trial.doing("destroying values of " + nameOf(type) + " that were copied");
        original.reset();
        AnyValue last(moved);
        { const AnyValue gone(std::move(last)); }
        passage.writeAndCompare(second, some(trial), "a value one of whose copies is destroyed");
    });
}

void copiesOnThreads(Trial& trial) {
    constexpr int kTimes = 25;
    trial.forEachCarried([&](const Type& type) {
        std::vector<std::unique_ptr<Passage>> passages;
        for (std::size_t i = 0; i < kThreads; ++i)
            passages.push_back(std::make_unique<Passage>(trial, type));
        const std::string what =
            "copying, writing and destroying " + nameOf(type) + " on eight threads";
        std::ptrdiff_t size = 0;
        passages[0]->fillInput(some(trial));
        const auto round = [&] {
            const std::size_t before = allocatedBytes();
            const AnyValue value = passages[0]->mustRead();
            size = static_cast<std::ptrdiff_t>(allocatedBytes() - before);
            runTogether(kThreads, [&](std::size_t i) {
                for (int time = 0; time < kTimes; ++time) {
                    // The copying is what is tried.
                    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
                    const AnyValue copy(value);
                    passages[i]->mustWrite(copy);
                }
            });
        };
        trial.doing(what);
        const std::ptrdiff_t growth = growthOf(round);
        for (const auto& passage : passages) passage->expectOutput(some(trial));
        // Threads take and leave some memory of their own.
        trial.expect(growth <= std::max<std::ptrdiff_t>(size / 2, 256),
                     "that a value is freed with its last copy",
                     std::to_string(growth) + " bytes more each time");
    });
}

void typeKnown(Trial& trial) {
    std::vector<std::pair<Type, AnyValue>> values;
    trial.forEachCarried([&](const Type& type) {
        Passage passage(trial, type);
        const AnyValue value = passage.fillAndRead(some(trial));
        const AnyValue again = passage.fillAndRead(other(trial));
        trial.doing("asking values of " + nameOf(type) + " for their type");
        trial.expect(typeInfoEquals(value.type(), again.type()), "the same type for both",
                     "different ones");
        for (const auto& [former, held] : values)
            trial.expect(!typeInfoEquals(held.type(), value.type()),
                         "another type than that of " + nameOf(former), "the same");
        values.emplace_back(type, value);
    });
}

}  // namespace

std::vector<Case> heldValueCases() {
    return {
        {"values/readings-share-nothing",
         "A graph may compare this frame's value with the last one's.", readingsShareNothing},
        {"values/held-value-stays",
         "A graph keeps values for as long as it likes, while the host goes on.", heldValueStays},
        {"values/holder-replaced",
         "The framework reads into the same holder again and again, frame after frame.",
         holderReplaced},
        {"values/empty-holder",
         "A graph that has no value must not be taken for one that has: the host keeps its data.",
         emptyHolder},
        {"values/foreign-value",
         "The framework offers a value to one library after the other, until one says true.",
         foreignValue},
        {"values/wrong-port",
         "Where ports change their type during an evaluation, the host must survive.", wrongPort},
        {"values/clean-after-success",
         "The host evaluates the node again and again for an output that stays dirty.",
         cleanAfterSuccess},
        {"values/copies", "A graph gives one value to many nodes, each with a copy.", copies},
        {"values/copies-on-threads",
         "A graph copies values on all threads, and lets go of them in any order.",
         copiesOnThreads},
        {"values/type-known",
         "The graph takes a value out of its holder by the type that the holder tells.", typeKnown},
    };
}

}  // namespace Tolvane::Tools
