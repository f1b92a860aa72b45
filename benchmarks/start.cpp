// What happens once: loading the library, building its registry, making a port's attributes.
#include "benchmarks/Ratio.h"
#include "benchmarks/Studio.h"

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnCompoundAttribute.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <OpenVornik/VFnGenericAttribute.h>
#include <OpenVornik/VFnMatrixAttribute.h>
#include <OpenVornik/VFnNumericAttribute.h>
#include <OpenVornik/VFnTypedAttribute.h>
#include <OpenVornik/VString.h>
#include <Pelmor/Array.h>
#include <Pelmor/Library.h>
#include <Pelmor/String.h>
#include <TavrikGraph/Executor/NodeEditContext.h>
#include <TavrikGraph/Executor/PortDirection.h>
#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <dlfcn.h>

namespace {

using namespace Benchmarks;
using TavrikGraph::Executor::TranslationLibrary;

// Loading and unloading, against a library that has nothing in it.
Pair loadingPair() {
    Pair pair;
    pair.measured.run = [] { const TranslationLibrary library(PLUGIN_AGAIN); };
    pair.reference.run = [] { dlclose(dlopen(EMPTY_LIBRARY, RTLD_NOW | RTLD_LOCAL)); };
    return pair;
}

// The first question for the names, which builds the registry, against making two maps of as many
// entries and asking them.
Pair registryPair() {
    struct Loaded {
        std::optional<TranslationLibrary> library;
        std::vector<std::string> names;
    };
    const auto kept = std::make_shared<Loaded>();
    Pelmor::Array<Pelmor::String> names;
    plugin().getSupportedTypeNames(names);
    for (const Pelmor::String& name : names) kept->names.emplace_back(name.c_str());
    Pair pair;
    pair.kept = kept;
    pair.measured.prepare = [&loaded = *kept] {
        loaded.library.reset();
        loaded.library.emplace(PLUGIN_AGAIN);
    };
    pair.measured.run = [&loaded = *kept] {
        Pelmor::Array<Pelmor::String> supported;
        loaded.library->translation().getSupportedTypeNames(supported);
    };
    pair.reference.run = [&loaded = *kept] {
        std::map<std::string, const void*> readers;
        std::map<const void*, const void*> writers;
        for (const std::string& name : loaded.names) {
            readers.emplace(name, &name);
            writers.emplace(&name, &name);
        }
        std::vector<std::string> supported;
        for (const auto& reader : readers) supported.push_back(reader.first);
        benchmark::DoNotOptimize(supported.data());
    };
    return pair;
}

// The attributes of the largest record, made by hand.
VObject child(const VObject& object, bool isArray) {
    VFnAttribute(object).setArray(isArray);
    return object;
}

VObject texts(const char* name, bool isArray = true) {
    return child(VFnTypedAttribute().create(name, name, VFnData::kString, VObject::kNullObj),
                 isArray);
}

VObject matrices(const char* name, bool isArray = true) {
    return child(VFnMatrixAttribute().create(name, name, VFnMatrixAttribute::kDouble), isArray);
}

VObject compound(const char* name, const std::vector<VObject>& children, bool isArray = false) {
    VFnCompoundAttribute attribute;
    const VObject object = attribute.create(name, name);
    attribute.setReadable(false);
    attribute.setWritable(true);
    attribute.setKeyable(true);
    attribute.setArray(isArray);
    for (const VObject& each : children) attribute.addChild(each);
    for (unsigned i = 0; i < attribute.numChildren(); ++i)
        VFnAttribute(attribute.child(i)).setEnforcingUniqueName(false);
    return object;
}

VObject namedTransforms() {
    const char* const names[] = {"matrix0", "matrix1", "matrix2", "matrix3",
                                 "matrix4", "matrix5", "matrix6", "matrix7"};
    std::vector<VObject> children;
    for (const char* name : names) children.push_back(matrices(name, false));
    return compound("namedTransforms", {texts("names"), compound("transforms", children, true)});
}

VObject controls(const char* name) {
    const VObject weights =
        VFnNumericAttribute().create("weights_A", "weights_A", VFnNumericData::kDouble, 0.0);
    return compound(
        name, {texts("names"), matrices("matrices"), child(weights, true), namedTransforms()});
}

VObject object(const char* name) { return child(VFnGenericAttribute().create(name, name), false); }

VObject inputs() {
    return compound(
        "port",
        {compound("pins", {texts("names"), matrices("matrices")}),
         compound("joints", {texts("names"), matrices("matrices"), namedTransforms()}),
         controls("controls0"), controls("controls1"), object("object0"), object("object1")});
}

void addByHand(const VObject& node) {
    const VFnDependencyNode functions(node);
    if (functions.attribute("port") != VObject::kNullObj) return;
    VDGModifier modifier;
    modifier.addAttribute(node, inputs());
    modifier.doIt();
}

Pair attributesPair() {
    struct Ports {
        VObject byPlugin;
        VObject byHand;
        Pelmor::Library library;
    };
    const auto kept = std::make_shared<Ports>();
    Pair pair;
    pair.kept = kept;
    pair.measured.prepare = [&ports = *kept] {
        ports.byPlugin = VFnDependencyNode().create("node");
    };
    pair.measured.run = [&ports = *kept, type = kept->library.getType("Rigging::Module::Inputs")] {
        VDGModifier modifier;
        TavrikGraph::Executor::NodeEditContext context{nullptr, ports.byPlugin, nullptr, &modifier};
        const auto direction = TavrikGraph::Executor::PortDirection::Input;
        plugin().portAdded("port", direction, type, 0, 0, &context);
    };
    pair.reference.prepare = [&ports = *kept] {
        ports.byHand = VFnDependencyNode().create("node");
    };
    pair.reference.run = [&ports = *kept] { addByHand(ports.byHand); };
    return pair;
}

}  // namespace

void addStartRatios() {
    addRatio("start/library and factory, empty library", loadingPair);
    addRatio("start/registry, two std::map", registryPair);
    addRatio("start/attributes of Inputs, by hand", attributesPair);
}
