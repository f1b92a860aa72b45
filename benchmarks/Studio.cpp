#include "benchmarks/Studio.h"

#include <OpenVornik/VArrayDataBuilder.h>
#include <OpenVornik/VArrayDataHandle.h>
#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VDataHandle.h>
#include <OpenVornik/VFnAttribute.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <OpenVornik/VMatrix.h>
#include <OpenVornik/VString.h>
#include <Pelmor/Library.h>
#include <TavrikGraph/Executor/HostContext.h>
#include <TavrikGraph/Executor/NodeEditContext.h>
#include <TavrikGraph/Executor/PortDirection.h>
#include <TavrikGraph/Executor/TranslationLibrary.h>

#include <stdexcept>
#include <string>

namespace Benchmarks {
namespace {

using TavrikGraph::Executor::HostContext;

Pelmor::Type typeNamed(const char* name) {
    static const Pelmor::Library s_library;
    return s_library.getType(name);
}

void require(bool holds) {
    if (!holds) throw std::runtime_error("a translation fails");
}

void fillValue(VDataHandle handle, VPlug plug, const Lengths& lengths, unsigned number);

void fillArray(VDataHandle& handle, VPlug plug, const Lengths& lengths, unsigned length) {
    VArrayDataHandle array(handle);
    VArrayDataBuilder builder = array.builder();
    for (unsigned i = builder.elementCount(); i > length; --i) builder.removeElement(i - 1);
    for (unsigned i = builder.elementCount(); i < length; ++i)
        fillValue(builder.addElement(i), plug.elementByLogicalIndex(i), lengths, i);
    array.set(builder);
}

void fillCompound(VDataHandle& handle, VPlug plug, const Lengths& lengths) {
    for (unsigned i = 0; i < plug.numChildren(); ++i) {
        VPlug child = plug.child(i);
        VDataHandle childHandle = handle.child(child);
        const bool areTexts = VFnAttribute(child.attribute()).kind() == VFnAttribute::kTyped;
        const unsigned length = areTexts && !lengths.areNamed ? 0 : lengths.inner;
        if (child.isArray())
            fillArray(childHandle, child, lengths, length);
        else
            fillValue(childHandle, child, lengths, i);
    }
}

void fillValue(VDataHandle handle, VPlug plug, const Lengths& lengths, unsigned number) {
    VMatrix matrix;
    matrix.matrix[3][0] = number;
    if (plug.isCompound()) return fillCompound(handle, plug, lengths);
    // Those that the value's kind refuses change nothing.
    handle.setMatrix(matrix);
    handle.setDouble(number);
    handle.setString(VString(("joint" + std::to_string(number)).c_str()));
}

}  // namespace

TavrikGraph::Executor::TypeTranslation& plugin() {
    static const TavrikGraph::Executor::TranslationLibrary s_library(PLUGIN);
    return s_library.translation();
}

HostPort::HostPort(const char* typeName) : type(typeNamed(typeName)) {
    VFnDependencyNode functions;
    node = functions.create("node");
    VDGModifier modifier;
    TavrikGraph::Executor::NodeEditContext context{nullptr, node, nullptr, &modifier};
    const auto direction = TavrikGraph::Executor::PortDirection::Input;
    require(plugin().portAdded("port", direction, type, 0, 0, &context));
    plug = VPlug(node, functions.attribute("port"));
    block = functions.dataBlock();
}

void HostPort::fill(const Lengths& lengths) {
    VDataHandle handle = block.outputValue(plug);
    if (plug.isArray()) return fillArray(handle, plug, lengths, lengths.outer);
    fillCompound(handle, plug, {lengths.outer, lengths.outer, lengths.areNamed});
}

void HostPort::read(Pelmor::AnyValue& value) {
    require(plugin().translateFromHost(type, value, HostContext{nullptr, &plug, &block}));
}

Pelmor::AnyValue HostPort::read() {
    Pelmor::AnyValue value;
    read(value);
    return value;
}

void HostPort::write(const Pelmor::AnyValue& value) {
    require(plugin().translateToHost(value, HostContext{nullptr, &plug, &block}));
}

}  // namespace Benchmarks
