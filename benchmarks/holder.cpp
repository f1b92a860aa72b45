// The graph's value holder against std::any, and looking into it against one indirect call.
#include "benchmarks/Ratio.h"
#include "plugin/Records.h"

#include <Pelmor/AnyValue.h>
#include <Pelmor/Array.h>

#include <any>
#include <array>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <new>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

namespace {

using namespace Benchmarks;

// The record's counterpart in the standard library's types.
namespace Standard {

using Matrix = std::array<double, 16>;
template <typename T>
using Shared = std::shared_ptr<std::vector<T>>;

struct Transform {
    std::array<Matrix, 8> matrices;
};
struct NamedTransforms {
    Shared<std::string> names = std::make_shared<std::vector<std::string>>();
    Shared<Transform> transforms = std::make_shared<std::vector<Transform>>();
};
struct Pins {
    Shared<std::string> names = std::make_shared<std::vector<std::string>>();
    Shared<Matrix> matrices = std::make_shared<std::vector<Matrix>>();
};
struct InputsJoints {
    Shared<std::string> names = std::make_shared<std::vector<std::string>>();
    Shared<Matrix> matrices = std::make_shared<std::vector<Matrix>>();
    NamedTransforms namedTransforms;
};
struct InputsControls {
    Shared<std::string> names = std::make_shared<std::vector<std::string>>();
    Shared<Matrix> matrices = std::make_shared<std::vector<Matrix>>();
    Shared<double> weights = std::make_shared<std::vector<double>>();
    NamedTransforms namedTransforms;
};
struct Object {};
// As in the graph, all records begin with one shared object.
const std::shared_ptr<Object>& defaultObject() {
    static const auto s_object = std::make_shared<Object>();
    return s_object;
}
struct Inputs {
    Pins pins;
    InputsJoints joints;
    InputsControls controls0;
    InputsControls controls1;
    std::shared_ptr<Object> object0 = defaultObject();
    std::shared_ptr<Object> object1 = defaultObject();
};

}  // namespace Standard

// While there is a second thread, std::shared_ptr counts atomically, as in any host.
class SecondThread {
public:
    SecondThread() : m_thread([this] { wait(); }) {}
    SecondThread(const SecondThread&) = delete;
    SecondThread& operator=(const SecondThread&) = delete;
    ~SecondThread() {
        {
            const std::lock_guard lock(m_mutex);
            m_ends = true;
        }
        m_end.notify_one();
        m_thread.join();
    }

private:
    void wait() {
        std::unique_lock lock(m_mutex);
        m_end.wait(lock, [this] { return m_ends; });
    }

    std::mutex m_mutex;
    std::condition_variable m_end;
    bool m_ends = false;
    std::thread m_thread;
};

constexpr std::size_t kHolders = 256;

// Many holders, so that one operation on each of them can be timed. A new one is made over an empty
// one, which owns nothing.
template <typename Holder, typename Value>
struct Holders {
    SecondThread thread;
    Value value{};
    // Where the rows begin in a cache line must not be chance.
    alignas(64) std::array<Holder, kHolders> full;
    alignas(64) std::array<Holder, kHolders> other;

    static Holder holding(const Value& value) {
        if constexpr (std::is_same_v<Holder, std::any>)
            return std::any(value);
        else
            return Pelmor::AnyValue::holding(value);
    }

    void fill() {
        for (auto& holder : full) holder = holding(value);
        for (auto& holder : other) holder.reset();
    }
    void empty() {
        for (auto& holder : full) holder.reset();
    }

    void make() {
        for (auto& holder : full) new (&holder) Holder(holding(value));
    }
    void copy() {
        for (std::size_t i = 0; i < kHolders; ++i) new (&other[i]) Holder(full[i]);
    }
    void move() {
        for (std::size_t i = 0; i < kHolders; ++i) new (&other[i]) Holder(std::move(full[i]));
    }
};

enum class Operation { Make, Copy, Move, Destroy };

template <typename Holder, typename Value>
Side sideOf(Operation operation, std::shared_ptr<Holders<Holder, Value>> holders) {
    Side side;
    side.elements = kHolders;
    side.prepare = [holders, operation] {
        holders->fill();
        if (operation == Operation::Make) holders->empty();
    };
    side.run = [holders, operation] {
        switch (operation) {
            case Operation::Make:
                return holders->make();
            case Operation::Copy:
                return holders->copy();
            case Operation::Move:
                return holders->move();
            case Operation::Destroy:
                return holders->empty();
        }
    };
    return side;
}

template <typename Value, typename StandardValue>
void addHolder(const std::string& held) {
    const std::pair<const char*, Operation> operations[] = {{"make", Operation::Make},
                                                            {"copy", Operation::Copy},
                                                            {"move", Operation::Move},
                                                            {"destroy", Operation::Destroy}};
    for (const auto& [name, operation] : operations)
        addRatio("holder/" + held + " " + name, [operation = operation] {
            auto holders = std::make_shared<Holders<Pelmor::AnyValue, Value>>();
            auto anys = std::make_shared<Holders<std::any, StandardValue>>();
            return Pair{sideOf(operation, holders), sideOf(operation, anys)};
        });
}

struct TwoWords {
    const void* first;
    const void* second;
};

bool areEqual(const TwoWords* a, const TwoWords* b) {
    return a->first == b->first && a->second == b->second;
}

// Keeps the compiler from knowing what is called.
bool (*volatile s_areEqual)(const TwoWords*, const TwoWords*) = &areEqual;

template <typename Wanted>
Pair accessPair() {
    constexpr int kTimes = 4096;
    auto holder =
        std::make_shared<Pelmor::AnyValue>(Pelmor::AnyValue::holding(Rigging::Module::Inputs()));
    Pair pair;
    pair.measured.elements = pair.reference.elements = kTimes;
    pair.measured.run = [holder] {
        for (int i = 0; i < kTimes; ++i) benchmark::DoNotOptimize(holder->getIf<Wanted>());
    };
    pair.reference.run = [] {
        static const TwoWords s_a{&s_a, nullptr}, s_b{&s_a, nullptr};
        for (int i = 0; i < kTimes; ++i) benchmark::DoNotOptimize(s_areEqual(&s_a, &s_b));
    };
    return pair;
}

}  // namespace

void addHolderRatios() {
    addHolder<Rigging::Module::Inputs, Standard::Inputs>("record");
    addHolder<Pelmor::SharedArray<Rigging::Module::Inputs>, Standard::Shared<Standard::Inputs>>(
        "shared array");
    addRatio("access/right type", accessPair<Rigging::Module::Inputs>);
    addRatio("access/wrong type", accessPair<Rigging::Module::Outputs>);
}
