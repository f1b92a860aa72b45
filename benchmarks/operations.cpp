// One operation of a fixed set, for its instructions to be counted: operations NAME, or operations
// for the names. What is counted is what happens inside countedOperation.
#include "benchmarks/Studio.h"
#include "plugin/Records.h"

#include <Pelmor/AnyValue.h>
#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace {

using namespace Benchmarks;

using Operation = std::function<void()>;

constexpr unsigned kJoints = 20;

// The first read and the first write are not counted: they also build the registry and bind the
// functions that they call.

Operation reading(const char* type) {
    const auto port = std::make_shared<HostPort>(type);
    port->fill({kJoints});
    const auto value = std::make_shared<Pelmor::AnyValue>(port->read());
    return [port, value] { port->read(*value); };
}

// To a port that has `formerLength` elements.
Operation writing(const char* type, unsigned formerLength) {
    const auto port = std::make_shared<HostPort>(type);
    port->fill({kJoints});
    const auto value = std::make_shared<Pelmor::AnyValue>(port->read());
    port->fill({formerLength});
    port->write(*value);
    port->fill({formerLength});
    return [port, value] { port->write(*value); };
}

Operation copying() {
    const auto value =
        std::make_shared<Pelmor::AnyValue>(Pelmor::AnyValue::holding(Rigging::Module::Inputs()));
    return [value] { const Pelmor::AnyValue copy(*value); };
}

Operation looking() {
    const auto value =
        std::make_shared<Pelmor::AnyValue>(Pelmor::AnyValue::holding(Rigging::Module::Inputs()));
    return [value] {
        if (!value->getIf<Rigging::Module::Inputs>()) std::abort();
    };
}

Operation loading() {
    return [] { const TavrikGraph::Executor::TranslationLibrary library(PLUGIN); };
}

const std::map<std::string, std::function<Operation()>>& operations() {
    static const char* const s_record = "Rigging::Module::Inputs";
    static const char* const s_array = "array<Rigging::Module::Inputs>";
    static const char* const s_outputs = "Rigging::Module::Outputs";
    static const char* const s_transforms = "array<Core::Transform::Transform>";
    static const std::map<std::string, std::function<Operation()>> s_operations{
        {"copy a holder", copying},
        {"grow a record", [] { return writing(s_record, 0); }},
        {"grow an array", [] { return writing(s_array, 0); }},
        {"load the library", loading},
        {"look into a holder", looking},
        {"read a record", [] { return reading(s_record); }},
        {"read an array", [] { return reading(s_array); }},
        {"read outputs", [] { return reading(s_outputs); }},
        {"read transforms", [] { return reading(s_transforms); }},
        {"shrink a record", [] { return writing(s_record, 2 * kJoints); }},
        {"shrink an array", [] { return writing(s_array, 2 * kJoints); }},
        {"write a record in place", [] { return writing(s_record, kJoints); }},
        {"write an array in place", [] { return writing(s_array, kJoints); }},
        {"write transforms in place", [] { return writing(s_transforms, kJoints); }},
    };
    return s_operations;
}

}  // namespace

extern "C" __attribute__((noinline, used)) void countedOperation(const std::function<void()>& run) {
    run();
}

int main(int count, char** arguments) {
    if (count < 2) {
        for (const auto& [name, make] : operations()) std::puts(name.c_str());
        return 0;
    }
    const auto found = operations().find(arguments[1]);
    if (found == operations().end()) {
        std::fprintf(stderr, "operations: there is no \"%s\"\n", arguments[1]);
        return 2;
    }
    countedOperation(found->second());
    return 0;
}
