// Finding readers and writers in the registry, compared with maps of plain strings.
#include "benchmarks/Ratio.h"
#include "plugin/Records.h"

#include <Pelmor/TypeInfo.h>
#include <Tolvane/TranslatorRegistry.h>

#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <benchmark/benchmark.h>

namespace {

using namespace Benchmarks;
using Tolvane::TranslatorRegistry;

// The names that are looked up, one after another.
struct Names {
    Names() {
        for (const auto& reader :
             TranslatorRegistry::instance<Rigging::Module::Records>().readers()) {
            names.push_back(reader.first);
            plainNames.emplace_back(reader.first.c_str());
        }
        for (const auto& writer :
             TranslatorRegistry::instance<Rigging::Module::Records>().writers())
            identities.push_back(writer.first);
    }

    std::vector<Pelmor::String> names;
    std::vector<const Pelmor::Internal::TypeInfo*> identities;
    std::vector<std::string> plainNames;
};

template <typename Map>
Side sideOf(const std::shared_ptr<Names>& names) {
    auto map = std::make_shared<Map>();
    for (const std::string& name : names->plainNames) map->emplace(name, &name);
    Side side;
    side.elements = static_cast<double>(names->plainNames.size());
    side.run = [names, map] {
        for (const std::string& name : names->plainNames)
            benchmark::DoNotOptimize(map->find(name)->second);
    };
    return side;
}

Side readerSide(const std::shared_ptr<Names>& names) {
    Side side;
    side.elements = static_cast<double>(names->names.size());
    side.run = [names] {
        const TranslatorRegistry& registry =
            TranslatorRegistry::instance<Rigging::Module::Records>();
        for (const Pelmor::String& name : names->names)
            benchmark::DoNotOptimize(registry.findReader(name));
    };
    return side;
}

Side writerSide(const std::shared_ptr<Names>& names) {
    Side side;
    side.elements = static_cast<double>(names->identities.size());
    side.run = [names] {
        const TranslatorRegistry& registry =
            TranslatorRegistry::instance<Rigging::Module::Records>();
        for (const Pelmor::Internal::TypeInfo* identity : names->identities)
            benchmark::DoNotOptimize(registry.findWriter(*identity));
    };
    return side;
}

using Map = std::map<std::string, const void*>;
using HashMap = std::unordered_map<std::string, const void*>;

template <typename Reference>
void addDispatch(const std::string& against) {
    addRatio("dispatch/reader by name, " + against, [] {
        const auto names = std::make_shared<Names>();
        return Pair{readerSide(names), sideOf<Reference>(names)};
    });
    addRatio("dispatch/writer by identity, " + against, [] {
        const auto names = std::make_shared<Names>();
        return Pair{writerSide(names), sideOf<Reference>(names)};
    });
}

}  // namespace

void addDispatchRatios() {
    addDispatch<HashMap>("std::unordered_map");
    addDispatch<Map>("std::map");
}
