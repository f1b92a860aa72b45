// What the sweeps over reading and writing have in common: the types that they go through, a port
// with data, and which of its attributes are clean.
#pragma once

#include "tests/convert/HostAttributes.h"
#include "tests/faults/Entries.h"
#include "tests/plugin/HostPort.h"
#include "tests/support/HostData.h"
#include "tests/support/Numbers.h"
#include "types/Records.h"

#include <OpenVornik/VFnAttribute.h>
#include <Pelmor/Array.h>
#include <Pelmor/DefaultClass.h>
#include <Tavrik/Object.h>

#include <cstdint>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

namespace FaultTests {

using Rigging::Module::Inputs;
using Rigging::Module::Outputs;
using ArrayOfInputs = Pelmor::SharedArray<Inputs>;
using ArrayOfOutputs = Pelmor::SharedArray<Outputs>;

// Every kind of array is inside a record, and that record inside an array.
using SweptTypes = testing::Types<Inputs, Outputs, ArrayOfInputs, ArrayOfOutputs>;

template <typename Held>
struct SweptType {
    using Element = Held;
    static constexpr bool isArray = false;
};
template <typename Record>
struct SweptType<Pelmor::SharedArray<Record>> {
    using Element = Record;
    static constexpr bool isArray = true;
};

struct NameOfSweptType {
    template <typename Held>
    static std::string GetName(int) {
        const bool isInputs = std::is_same_v<typename SweptType<Held>::Element, Inputs>;
        return std::string(SweptType<Held>::isArray ? "ArrayOf" : "") +
               (isInputs ? "Inputs" : "Outputs");
    }
};

template <typename Held>
VObject attributeForPort() {
    using Type = SweptType<Held>;
    return TestSupport::attributeFor<typename Type::Element>("port", Type::isArray);
}

// A node, "rig", with an attribute "port" for a value of that type, with numbers in it.
template <typename Held>
struct SweptPort : PluginTests::HostPort {
    explicit SweptPort(TestSupport::Numbers numbers) : HostPort(attributeForPort<Held>()) {
        TestSupport::number(numbers, block.outputValue(plug), plug);
    }

    Entries entries() { return entriesOf(block.outputValue(plug), plug); }
};

inline void collectAttributes(std::set<std::string>& all, std::set<std::string>& clean,
                              const VDataBlock& block, const VPlug& plug, const std::string& path) {
    all.insert(path);
    if (block.isClean(plug.attribute())) clean.insert(path);
    const VPlug value = plug.isArray() ? plug.elementByLogicalIndex(0) : plug;
    if (!value.isCompound()) return;
    for (unsigned i = 0; i < value.numChildren(); ++i) {
        const VPlug child = value.child(i);
        collectAttributes(all, clean, block, child,
                          path + '.' + VFnAttribute(child.attribute()).name().asChar());
    }
}

inline std::set<std::string> cleanAttributes(const VDataBlock& block, const VPlug& port) {
    std::set<std::string> all, clean;
    collectAttributes(all, clean, block, port, port.name().asChar());
    return clean;
}

// Those attributes and all below them.
inline std::set<std::string> attributesAt(const std::set<std::string>& places,
                                          const VDataBlock& block, const VPlug& port) {
    std::set<std::string> all, clean, found;
    collectAttributes(all, clean, block, port, port.name().asChar());
    for (const std::string& attribute : all)
        for (const std::string& place : places)
            if (isAt(attribute, place)) found.insert(attribute);
    return found;
}

inline std::uint64_t usesOfDefaultObject() {
    return Pelmor::Internal::getDefaultClass<Tavrik::Object>().useCount();
}

}  // namespace FaultTests
