// Reading and writing against the floor, growth, and what one would do without a plugin.
#include "benchmarks/Floor.h"
#include "benchmarks/Json.h"
#include "benchmarks/Ratio.h"
#include "benchmarks/Studio.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <optional>
#include <string>
#include <utility>

#include <benchmark/benchmark.h>
#include <unistd.h>

namespace {

using namespace Benchmarks;

constexpr unsigned kSizes[] = {1, 10, 100, 1'000, 10'000, 100'000};
constexpr unsigned kJointsPerRecord = 10;

// Small values are handled many times in a run, so that the clock can measure them.
unsigned timesInARun(unsigned size) { return std::max(1u, 256 / size); }

// The values are gone when they have been read, so that the largest fit into memory.
template <typename Value>
Pair readingPair(const char* type, const Lengths& lengths) {
    const auto port = std::make_shared<HostPort>(type);
    port->fill(lengths);
    const unsigned times = timesInARun(lengths.outer);
    Pair pair;
    pair.kept = port;
    pair.measured.run = [&port = *port, times] {
        for (unsigned i = 0; i < times; ++i) port.read();
    };
    pair.reference.run = [&port = *port, times] {
        for (unsigned i = 0; i < times; ++i) Floor::readPort<Value>(port.block, port.plug);
    };
    pair.measured.elements = pair.reference.elements = times * lengths.outer;
    return pair;
}

// Ports that are written to, and a value in the graph's form and in the floor's.
template <typename Value>
struct Writing {
    Writing(const char* type, const Lengths& lengths) {
        for (unsigned i = 0; i < timesInARun(lengths.outer); ++i) ports.emplace_back(type);
        fill(lengths);
        value = ports[0].read();
        floorValue = Floor::readPort<Value>(ports[0].block, ports[0].plug);
    }

    void fill(const Lengths& lengths) {
        for (HostPort& port : ports) port.fill(lengths);
    }

    // What either side is about to write is read from what the last run wrote. The other side's is
    // gone meanwhile, so that the largest fit into memory.
    void keepValue() {
        floorValue.reset();
        if (!value.hasValue()) value = ports[0].read();
    }
    void keepFloorValue() {
        value.reset();
        if (!floorValue) floorValue = Floor::readPort<Value>(ports[0].block, ports[0].plug);
    }

    std::deque<HostPort> ports;
    Pelmor::AnyValue value;
    std::optional<Value> floorValue;
};

template <typename Value>
Pair writingPair(const char* type, const Lengths& lengths, unsigned formerLength) {
    const auto kept = std::make_shared<Writing<Value>>(type, lengths);
    Pair pair;
    pair.kept = kept;
    pair.measured.run = [&writing = *kept] {
        for (HostPort& port : writing.ports) port.write(writing.value);
    };
    pair.reference.run = [&writing = *kept] {
        for (HostPort& port : writing.ports)
            Floor::writePort(*writing.floorValue, port.block, port.plug);
    };
    if (formerLength != lengths.outer) {
        const Lengths former{formerLength, lengths.inner};
        pair.measured.prepare = [&writing = *kept, former] {
            writing.keepValue();
            writing.fill(former);
        };
        pair.reference.prepare = [&writing = *kept, former] {
            writing.keepFloorValue();
            writing.fill(former);
        };
    }
    pair.measured.elements = pair.reference.elements =
        static_cast<double>(kept->ports.size()) * lengths.outer;
    return pair;
}

// Whether the machine has the memory for it. `values` is how many of them the run keeps at a time.
bool fits(double bytesPerElement, unsigned size, double values) {
    static const double s_memory =
        static_cast<double>(sysconf(_SC_PHYS_PAGES)) * static_cast<double>(sysconf(_SC_PAGESIZE));
    return bytesPerElement * size * values <= 0.75 * s_memory;
}

template <typename Value>
void addFloor(const char* type, double bytesPerElement) {
    const std::string name = std::string("floor/") + type;
    for (const unsigned size : kSizes) {
        const Lengths lengths{size, kJointsPerRecord};
        const std::string end = "/" + std::to_string(size);
        // The host's and the one that is read.
        if (fits(bytesPerElement, size, 2))
            addRatio(name + "/read" + end, [=] { return readingPair<Value>(type, lengths); });
        // The host's and one for either side.
        if (fits(bytesPerElement, size, 3)) {
            addRatio(name + "/in place" + end,
                     [=] { return writingPair<Value>(type, lengths, size); });
            addRatio(name + "/growing" + end, [=] { return writingPair<Value>(type, lengths, 0); });
        }
        // The host's former one, which is twice as long, its new one and the one that is written.
        if (fits(bytesPerElement, size, 4))
            addRatio(name + "/shrinking" + end,
                     [=] { return writingPair<Value>(type, lengths, 2 * size); });
    }
}

// A record without arrays has one size only.
void addFloorOfTransform() {
    const char* type = "Core::Transform::Transform";
    const std::string name = std::string("floor/") + type;
    addRatio(name + "/read/1", [=] {
        return readingPair<Floor::Transform>(type, {1, kJointsPerRecord});
    });
    addRatio(name + "/in place/1", [=] {
        return writingPair<Floor::Transform>(type, {1, kJointsPerRecord}, 1);
    });
}

void addFloors() {
    constexpr double kMatrix = 128, kText = 64, kTransform = 8 * kMatrix;
    constexpr double kPins = kText + kMatrix, kNamed = kText + kTransform,
                     kControls = kPins + kNamed;
    constexpr double kInputs = 3 * kControls + kPins, kOutputs = kPins + 3 * kNamed;
    addFloorOfTransform();
    addFloor<Floor::NamedTransforms>("Rigging::Module::NamedTransforms", kNamed);
    addFloor<Floor::Pins>("Rigging::Module::Pins", kPins);
    addFloor<Floor::InputsJoints>("Rigging::Module::InputsJoints", kControls);
    addFloor<Floor::InputsControls>("Rigging::Module::InputsControls", kControls);
    addFloor<Floor::Inputs>("Rigging::Module::Inputs", kInputs);
    addFloor<Floor::Outputs>("Rigging::Module::Outputs", kOutputs);

    constexpr double kJoints = kJointsPerRecord;
    addFloor<std::vector<Floor::Transform>>("array<Core::Transform::Transform>", kTransform);
    addFloor<std::vector<Floor::NamedTransforms>>("array<Rigging::Module::NamedTransforms>",
                                                  kJoints * kNamed);
    addFloor<std::vector<Floor::Pins>>("array<Rigging::Module::Pins>", kJoints * kPins);
    addFloor<std::vector<Floor::InputsJoints>>("array<Rigging::Module::InputsJoints>",
                                               kJoints * kControls);
    addFloor<std::vector<Floor::InputsControls>>("array<Rigging::Module::InputsControls>",
                                                 kJoints * kControls);
    addFloor<std::vector<Floor::Inputs>>("array<Rigging::Module::Inputs>", kJoints * kInputs);
    addFloor<std::vector<Floor::Outputs>>("array<Rigging::Module::Outputs>", kJoints * kOutputs);
}

// The time of one element among many against that of one among few, each as often.
struct Growing {
    HostPort many{"Rigging::Module::Inputs"};
    HostPort few{"Rigging::Module::Inputs"};
    Pelmor::AnyValue manyValue;
    Pelmor::AnyValue fewValue;
};

Pair growthPair(bool isReading) {
    constexpr unsigned kMany = 100'000, kFew = 1'000, kTimes = kMany / kFew;
    const auto kept = std::make_shared<Growing>();
    kept->many.fill({kMany});
    kept->few.fill({kFew});
    kept->many.read(kept->manyValue);
    kept->few.read(kept->fewValue);
    Pair pair;
    pair.kept = kept;
    pair.measured.elements = pair.reference.elements = kMany;
    pair.measured.run = [&ports = *kept, isReading] {
        isReading ? ports.many.read(ports.manyValue) : ports.many.write(ports.manyValue);
    };
    pair.reference.run = [&ports = *kept, isReading] {
        for (unsigned i = 0; i < kTimes; ++i)
            isReading ? ports.few.read(ports.fewValue) : ports.few.write(ports.fewValue);
    };
    return pair;
}

// Matrices alone, against copying as many bytes.
struct Copying {
    static constexpr unsigned kMatrices = 100'000;

    Copying() : from(kMatrices), to(kMatrices) {
        std::memset(from.data()->values.data(), 1, kMatrices * sizeof(Floor::Matrix));
        port.fill({kMatrices, kMatrices, false});
        port.read(value);
    }

    HostPort port{"Rigging::Module::Pins"};
    Pelmor::AnyValue value;
    std::vector<Floor::Matrix> from;
    std::vector<Floor::Matrix> to;
};

Pair limitPair(bool isReading) {
    const auto kept = std::make_shared<Copying>();
    Pair pair;
    pair.kept = kept;
    pair.measured.elements = pair.reference.elements = Copying::kMatrices;
    pair.measured.run = [&copying = *kept, isReading] {
        isReading ? copying.port.read(copying.value) : copying.port.write(copying.value);
    };
    pair.reference.run = [&copying = *kept] {
        std::memcpy(copying.to.data(), copying.from.data(),
                    copying.from.size() * sizeof(Floor::Matrix));
        benchmark::DoNotOptimize(copying.to.data());
    };
    return pair;
}

// A rig in and out again, by the plugin and as text in an attribute.
struct ThroughJson {
    static constexpr unsigned kJoints = 100;

    ThroughJson() {
        port.fill({kJoints});
        text.write(Floor::readPort<Floor::Inputs>(port.block, port.plug));
    }

    HostPort port{"Rigging::Module::Inputs"};
    Pelmor::AnyValue value;
    JsonPort text;
};

Pair jsonPair() {
    const auto kept = std::make_shared<ThroughJson>();
    Pair pair;
    pair.kept = kept;
    pair.measured.elements = pair.reference.elements = ThroughJson::kJoints;
    pair.measured.run = [&both = *kept] { both.text.write(both.text.read()); };
    pair.reference.run = [&both = *kept] {
        both.port.read(both.value);
        both.port.write(both.value);
    };
    return pair;
}

}  // namespace

void addTranslationRatios() {
    addFloors();
    addRatio("JSON instead/100 joints", jsonPair);
    addRatio("memcpy/matrices read", [] { return limitPair(true); });
    addRatio("memcpy/matrices written", [] { return limitPair(false); });
    addRatio("growth/100000 against 1000, read", [] { return growthPair(true); });
    addRatio("growth/100000 against 1000, written", [] { return growthPair(false); });
}
