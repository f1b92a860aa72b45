#include "tools/check/Allocations.h"
#include "tools/check/Case.h"
#include "tools/check/Passage.h"
#include "tools/check/Trial.h"
#include "tools/check/Usage.h"
#include "tools/check/WatchedHost.h"
#include "tools/node/GenerateData.h"
#include "tools/support/Error.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

namespace Tolvane::Tools {
namespace {

Content contentOf(const Trial& trial, std::size_t number, std::size_t elements) {
    Content content;
    content.seed = seedOf(trial.seed(), number);
    content.elements = elements;
    return content;
}

// Two nodes' values in turn, so that the output grows and shrinks.
void evaluate(Passage& node, Passage& other, std::size_t times) {
    Pelmor::AnyValue value;
    for (std::size_t i = 0; i < times; ++i)
        if ((i % 2 == 0 ? node : other).read(value)) node.write(value);
}

void memory(Trial& trial) {
    constexpr std::size_t kWarmUp = 1'000;
    constexpr std::size_t kAll = 20'000;
    trial.forEachCarried([&](const Pelmor::Type& type) {
        Passage node(trial, type);
        Passage other(trial, type);
        node.fillInput(contentOf(trial, 0, 1));
        other.fillInput(contentOf(trial, 1, 2));
        const std::string what = "reading and writing " + nameOf(type) + " 20,000 times";
        trial.doing(what);
        evaluate(node, other, kWarmUp);
        const std::size_t before = allocatedBytes();
        for (std::size_t done = kWarmUp; done < kAll; done += kWarmUp) {
            trial.doing(what);
            evaluate(node, other, kWarmUp);
        }
        const std::size_t after = allocatedBytes();
        // Whatever is taken each time takes more than a byte.
        trial.expect(after < before + (kAll - kWarmUp), "no more memory than after 1,000 times",
                     std::to_string(after - before) + " bytes more");
    });
}

// In elements; more than a hundred, so that arrays within arrays are alike in all.
using Sizes = std::initializer_list<std::size_t>;
constexpr Sizes kSizes{200, 1'000, 10'000};
// Calls are told exactly, so that fewer show; and to have them told takes time.
constexpr Sizes kSizesForCalls{200, 2'000};

// What a matrix takes, once from the host and once for the graph.
constexpr double kLeafBytes = 256;

struct Cost {
    std::size_t elements;
    std::uint64_t amount;

    double each() const { return static_cast<double>(amount) / static_cast<double>(elements); }
};

// What one kind of evaluation costs in several sizes, smaller ones first.
class Costs {
public:
    // False once there was something to warn of. Who takes memory in advance, or twice as much as
    // before, takes now more for each element and now less, even nothing: `steps` times as much as
    // for a small size is no growth, nor is `bearable` for each element.
    bool add(Trial& trial, const std::string& doing, const char* unit, const Cost& cost,
             double steps, double bearable = 0) {
        const auto [former, isNew] = m_smallest.try_emplace(doing + unit, cost);
        const double most = std::max(former->second.each() * steps, bearable);
        if (isNew || cost.each() <= most) return true;
        trial.warn(doing + ": " + inWords(former->second, unit) + ", but " + inWords(cost, unit));
        return false;
    }

private:
    static std::string inWords(const Cost& cost, const char* unit) {
        return std::to_string(cost.amount) + " " + unit + " for " + std::to_string(cost.elements) +
               " elements";
    }

    std::map<std::string, Cost> m_smallest;
};

// Calls `measure` with the node, what is done with it, and what does that, for evaluations of
// growing size.
template <typename Measure>
void evaluateIn(const Sizes& sizes, Trial& trial, const Pelmor::Type& type,
                const Measure& measure) {
    for (const std::size_t size : sizes) {
        Passage node(trial, type);
        node.fillInput(contentOf(trial, 0, size));
        const std::string what = nameOf(type) + " of " + std::to_string(size) + " elements";
        Pelmor::AnyValue value;
        const auto once = [&](const char* doing, const auto& work) {
            trial.doing(doing + (" " + what));
            return measure(node, size, doing + (" " + nameOf(type)), work);
        };
        if (!once("reading", [&] { node.read(value); })) return;
        if (!value.hasValue()) return;
        if (!once("writing", [&] { node.write(value); })) return;
        if (!once("writing over", [&] { node.write(value); })) return;
    }
}

// What a library does once for all sizes.
void warmUp(Trial& trial, const Pelmor::Type& type) {
    Passage node(trial, type);
    node.fillInput(contentOf(trial, 0, 1));
    evaluate(node, node, 2);
}

void allocationsOfData(Trial& trial) {
    trial.translation();
    try {
        countAllocations();
    } catch (const Error& error) {
        trial.skip(error.what());
    }
    trial.forEachCarried([&](const Pelmor::Type& type) {
        warmUp(trial, type);
        Costs costs;
        evaluateIn(
            kSizes, trial, type,
            [&](Passage& node, std::size_t size, const std::string& doing, const auto& work) {
                const Allocations before = allocations();
                work();
                const Allocations after = allocations();
                const auto each = static_cast<double>(attributeCount(node.input().shape));
                return costs.add(trial, doing, "allocations", {size, after.count - before.count}, 2,
                                 each) &&
                       costs.add(trial, doing, "bytes allocated",
                                 {size, after.bytes - before.bytes}, 3, each * kLeafBytes);
            });
    });
}

void hostCallsOfData(Trial& trial) {
    skipUnlessWatched(trial);
    trial.forEachCarried([&](const Pelmor::Type& type) {
        Costs costs;
        evaluateIn(kSizesForCalls, trial, type,
                   [&](Passage&, std::size_t size, const std::string& doing, const auto& work) {
                       const WatchedHost host;
                       work();
                       return costs.add(trial, doing, "host calls", {size, host.count()}, 1.5);
                   });
    });
}

void names(Trial& trial) {
    constexpr std::size_t kTimes = 1'000;
    const auto ask = [&](std::size_t times) {
        for (std::size_t i = 0; i < times; ++i) {
            Pelmor::Array<Pelmor::String> list;
            trial.translation().getSupportedTypeNames(list);
        }
    };
    trial.translation();
    trial.doing("asking for the names 1,000 times");
    ask(10);
    const std::size_t before = allocatedBytes();
    ask(kTimes);
    const std::size_t after = allocatedBytes();
    if (after >= before + kTimes)
        trial.warn("after asking for the names 1,000 times, " + std::to_string(after - before) +
                   " bytes more are taken");
}

}  // namespace

std::vector<Case> thriftCases() {
    return {
        {"thrift/memory",
         "What a library keeps of each evaluation fills the machine in a session of many hours.",
         memory},
        {"thrift/allocations",
         "Allocations that grow faster than the data make a scene that is twice as big four times"
         " as slow.",
         allocationsOfData},
        {"thrift/host-calls",
         "Host calls are most of what a translation costs, and should be no more than the data"
         " needs.",
         hostCallsOfData},
        {"thrift/names", "A framework asks for the names whenever it lists the types.", names},
    };
}

}  // namespace Tolvane::Tools
