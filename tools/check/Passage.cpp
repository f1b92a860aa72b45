#include "tools/check/Passage.h"

#include "tools/check/MemberAttributes.h"
#include "tools/node/CompareData.h"
#include "tools/support/OneLine.h"

#include <OpenVornik/VDGModifier.h>
#include <OpenVornik/VFnDependencyNode.h>
#include <TavrikGraph/Executor/HostContext.h>
#include <TavrikGraph/Executor/NodeEditContext.h>

namespace Tolvane::Tools {

using TavrikGraph::Executor::HostContext;
using TavrikGraph::Executor::PortDirection;

Passage::Passage(Trial& trial, const Pelmor::Type& type)
    : m_trial(trial),
      m_type(type),
      m_node(VFnDependencyNode().create("node")),
      m_data(VFnDependencyNode(m_node).dataBlock()),
      m_input(addPort(kInput, PortDirection::Input)),
      m_output(addPort(kOutput, PortDirection::Output)),
      m_reference(addPort("reference", PortDirection::Input)) {}

void Passage::fillInput(const Content& content) {
    fill(input(), content);
    m_data.setDirty(m_input.plug.attribute());
}

bool Passage::read(Pelmor::AnyValue& value) {
    const HostContext context{this, &m_input.plug, &m_data};
    return m_trial.translation().translateFromHost(m_type, value, context);
}

bool Passage::write(const Pelmor::AnyValue& value) {
    m_data.setDirty(m_output.plug.attribute());
    const HostContext context{this, &m_output.plug, &m_data};
    return m_trial.translation().translateToHost(value, context);
}

void Passage::evaluate() {
    Pelmor::AnyValue value;
    if (read(value)) write(value);
}

Pelmor::AnyValue Passage::mustRead() {
    Pelmor::AnyValue value;
    m_trial.expect(read(value), "true", "false");
    m_trial.expect(value.hasValue(), "a value in the holder", "an empty holder");
    return value;
}

void Passage::mustWrite(const Pelmor::AnyValue& value) {
    skipIfOnlyRead();
    m_trial.expect(write(value), "true", "false");
}

void Passage::skipIfOnlyRead() const {
    for (const Survey::Carried& each : m_trial.survey().carried)
        if (each.isOnlyRead && each.name == nameOf(m_type))
            m_trial.skip(each.name + " is read from the host, and not written to it");
}

Pelmor::AnyValue Passage::fillAndRead(const Content& content) {
    fillInput(content);
    m_trial.doing("reading " + nameOf(m_type) + ", " + inWords(content));
    return mustRead();
}

void Passage::carry(const Content& content) {
    const Pelmor::AnyValue value = fillAndRead(content);
    m_trial.doing("writing " + nameOf(m_type) + ", " + inWords(content));
    mustWrite(value);
    expectOutput(content);
}

void Passage::writeAndCompare(const Pelmor::AnyValue& value, const Content& content,
                              const std::string& what) {
    m_trial.doing("writing " + nameOf(m_type) + ", " + what);
    mustWrite(value);
    expectOutput(content);
}

std::string Passage::differenceOfOutput(Content content) {
    content.sparse = false;
    return firstDifference(reference(content), output());
}

std::string Passage::differenceOfOutputValues(const Content& content) {
    std::string first;
    Comparison comparison;
    compareData(reference(content), output(), comparison, [&](const Mismatch& mismatch) {
        if (first.empty() && mismatch.what != kAtAnotherIndex) first = inOneLine(mismatch);
    });
    return first;
}

void Passage::expectOutput(const Content& content) {
    const std::string difference = differenceOfOutput(content);
    m_trial.expect(difference.empty(), "what went in", oneLine(difference));
}

void Passage::expectInput(const Content& content) {
    const std::string difference = firstDifference(reference(content), input());
    m_trial.expect(difference.empty(), "the host's data as it was", oneLine(difference));
}

DataShape Passage::addPort(const char* name, PortDirection direction) {
    VDGModifier modifier;
    TavrikGraph::Executor::NodeEditContext context{this, m_node, nullptr, &modifier};
    const VPlug plug = m_trial.translation().portAdded(name, direction, m_type, 0, 0, &context)
                           ? VFnDependencyNode(m_node).findPlug(name)
                           : VPlug();
    if (plug.isNull()) m_trial.skip("a port of " + nameOf(m_type) + " gets no attribute");
    DataShape shape = shapeOf(plug);
    forEachSingle(shape, m_type, [&](DataShape& single) {
        noteSingle(m_trial, m_type, single);
        single.kind = DataShape::Kind::Empty;
        single.children.clear();
    });
    return shape;
}

DataPlace Passage::reference(const Content& content) {
    const DataPlace place{m_reference, m_data.outputValue(m_reference.plug)};
    fill(place, content);
    return place;
}

std::vector<Pelmor::Type> passable(Trial& trial) {
    std::vector<Pelmor::Type> types;
    trial.forEachCarried([&](const Pelmor::Type& type) {
        Passage(trial, type).skipIfOnlyRead();
        types.push_back(type);
    });
    return types;
}

std::string firstDifference(const DataPlace& expected, const DataPlace& actual) {
    Comparison comparison;
    compareData(expected, actual, comparison);
    return comparison.firstMismatch ? inOneLine(*comparison.firstMismatch) : "";
}

}  // namespace Tolvane::Tools
